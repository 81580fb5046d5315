#include "DemoClient.h"

namespace velmorath {

namespace {

constexpr int rowCount = 12;
constexpr double textMargin = 15;
constexpr double dateWidth = 90;
constexpr double dotSize = 40;

double rowHeight(CGSize size)
{
    return size.height / rowCount;
}

CGRect textRectOfRow(int row, CGSize size, double offset)
{
    const double height = rowHeight(size);
    return CGRectMake(textMargin, row * height + offset, size.width - 2 * textMargin - dateWidth, height);
}

CGRect dotAt(CGPoint point)
{
    return CGRectMake(point.x - dotSize / 2, point.y - dotSize / 2, dotSize, dotSize);
}

CGRect withShadow(CGPoint point)
{
    const CGRect dot = dotAt(point);
    return CGRectMake(dot.minX() - 8, dot.minY() - 8, dotSize + 16, dotSize + 20);
}

const CGTextStyle rowStyle{.font = {.size = 17, .bold = true}, .color = CGColor::gray(1)};

std::string rowText(int row)
{
    return "Row " + std::to_string(row) + ", as long as notes are";
}

} // namespace

DemoClient::DemoClient(Host& host)
    : m_host(host)
{
}

void DemoClient::damage(const CGRect& rect)
{
    m_damage = m_damage.united(rect);
    m_host.screen().requestFrame();
}

void DemoClient::touchesChanged(const std::vector<HostTouch>& touches, double)
{
    for (const HostTouch& touch : touches) {
        const auto known = m_fingers.find(touch.identifier);
        if (known != m_fingers.end())
            damage(withShadow(known->second));
        damage(withShadow(touch.location));
        m_fingers[touch.identifier] = touch.location;
        if (touch.phase == HostTouch::Phase::ended && m_fingers.size() == 1)
            edit(touch.location);
        if (touch.phase == HostTouch::Phase::ended || touch.phase == HostTouch::Phase::cancelled)
            m_fingers.erase(touch.identifier);
    }
}

void DemoClient::edit(CGPoint at)
{
    m_host.textInput().end();
    const CGSize size = m_host.screen().size();
    m_editedRow = static_cast<int>((at.y - m_offset) / rowHeight(size));
    if (!m_texts.count(m_editedRow))
        m_texts[m_editedRow] = rowText(m_editedRow);
    m_host.textInput().begin(*this, m_texts[m_editedRow], rowStyle, {});
    m_host.textInput().place(textRect(), textRect(), 1);
    screenChanged();
}

CGRect DemoClient::textRect() const
{
    return textRectOfRow(m_editedRow, m_host.screen().size(), m_offset);
}

void DemoClient::scrolled(CGPoint, CGVector by)
{
    m_offset += by.dy;
    screenChanged();
}

void DemoClient::screenChanged()
{
    if (m_editedRow >= 0)
        m_host.textInput().place(textRect(), textRect(), 1);
    damage({{}, m_host.screen().size()});
}

CGRect DemoClient::prepareFrame()
{
    return std::exchange(m_damage, CGRect::null());
}

void DemoClient::drawRows(
    CGContext& context, CGSize size, double offset, int editedRow, const std::map<int, std::string>& texts)
{
    static const CGGradient gloss{
        {CGColor::gray(1, 0.2), CGColor::gray(1, 0.1), {0, 0, 0, 0}, {0, 0, 0, 0.1}}, {0, 0.01, 0.95, 1}};
    const double height = rowHeight(size);
    const CGTextStyle dateStyle{
        .font = {.size = 11}, .color = CGColor::gray(1, 0.8), .alignment = CGTextAlignment::right};
    for (int row = 0; row < rowCount; ++row) {
        const CGRect rect = CGRectMake(0, row * height + offset, size.width, height);
        context.fill(rect, 0, CGColor{1, row * 0.07, 0});
        context.fill(rect, 0, gloss);
        const auto text = texts.find(row);
        if (row != editedRow)
            context.drawText(text == texts.end() ? rowText(row) : text->second,
                textRectOfRow(row, size, offset), rowStyle);
        context.drawText("Nov 22, 2026",
            CGRectMake(size.width - textMargin - dateWidth, rect.minY(), dateWidth, height), dateStyle);
    }
}

void DemoClient::draw(CGContext& context, const CGRect& area)
{
    context.fill(area, 0, CGColor::gray(0));
    drawRows(context, m_host.screen().size(), m_offset, m_editedRow, m_texts);
    for (const auto& [identifier, at] : m_fingers) {
        const CGRect dot = dotAt(at);
        context.drawShadow(dot, dotSize / 2, CGColor::gray(0, 0.8), {0, 4}, 8);
        context.fill(dot, dotSize / 2, CGColor{0.3, 0.6, 1});
        context.stroke(dot, dotSize / 2, 2, CGColor::gray(1));
    }
}

void DemoClient::stateChanged(HostState state)
{
    m_host.console().writeLine("state " + std::to_string(static_cast<int>(state)));
}

void DemoClient::willTerminate()
{
    m_host.console().writeLine("will terminate");
}

void DemoClient::textInputDidChange(const std::string& utf8)
{
    m_texts[m_editedRow] = utf8;
    m_host.console().writeLine("text " + utf8);
}

void DemoClient::textInputDidReturn()
{
    m_host.textInput().end();
    m_editedRow = -1;
    screenChanged();
}

} // namespace velmorath
