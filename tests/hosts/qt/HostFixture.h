#pragma once

#include "QtHost.h"
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <sstream>

namespace velmorath {

using Texts = std::vector<std::string>;

/// Writes down what the host says, and draws what a test wants drawn.
class RecordingClient final : public HostClient {
public:
    void touchesChanged(const std::vector<HostTouch>& changed, double) override
    {
        static constexpr const char* phases[] = {"began", "moved", "ended", "cancelled"};
        std::ostringstream line;
        for (const HostTouch& touch : changed) {
            line << (line.tellp() > 0 ? ", " : "") << phases[static_cast<int>(touch.phase)] << " "
                 << touch.identifier << " at " << touch.location.x << " " << touch.location.y;
        }
        heard.push_back(line.str());
    }
    void scrolled(CGPoint, CGVector by) override
    {
        heard.push_back("scrolled " + QString::number(by.dy).toStdString());
    }
    bool keyPressed(const HostKeyPress&) override { return true; }
    bool documentOpened(const Result<std::string>& file) override
    {
        heard.push_back(file ? *file : "error");
        return true;
    }
    void documentsChanged() override { }
    void screenChanged() override { heard.push_back("another size"); }
    CGRect prepareFrame() override
    {
        ++frames;
        if (onFrame)
            onFrame();
        return std::exchange(damage, CGRect::null());
    }
    void draw(CGContext& context, const CGRect& area) override
    {
        drawn.push_back(area);
        context.fill(area, 0, CGColor::gray(0));
        if (drawing)
            drawing(context);
    }
    AccessibilityElement accessibilityTree() override
    {
        ++readings;
        return tree;
    }
    bool pressElement(std::int64_t) override { return true; }
    bool performElementAction(std::int64_t, std::size_t) override { return true; }
    bool focusElement(std::int64_t) override { return true; }
    void wake() override { heard.push_back("woken"); }
    void stateChanged(HostState state) override
    {
        heard.push_back(state == HostState::background ? "out of sight" : "in sight");
    }
    void willTerminate() override { }

    Texts heard;
    int frames = 0;
    std::function<void()> onFrame;
    CGRect damage = CGRect::null();
    std::vector<CGRect> drawn;
    std::function<void(CGContext&)> drawing;
    AccessibilityElement tree;
    int readings = 0;
};

/// A whole host with its window, on Qt's screen that nobody sees, and whoever edits a text there.
class HostFixture : public testing::Test, public TextInputClient {
protected:
    HostFixture()
    {
        host.attach(client);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&host.widget()));
        QTest::qWait(60);
        client.drawn.clear();
        client.heard.clear();
        client.frames = 0;
    }
    ~HostFixture() override
    {
        host.textInput().end();
        host.detach();
    }

    void textInputDidChange(const std::string& utf8) override
    {
        changes.push_back(utf8);
        if (onChange)
            onChange();
    }
    void textInputDidReturn() override { ++returns; }

    void begin(const std::string& text, const TextInputTraits& traits = {})
    {
        host.textInput().begin(*this, text, style, traits);
        host.textInput().place(field, field, 1);
    }
    template <typename Editor> Editor* editor()
    {
        for (Editor* found : host.widget().findChildren<Editor*>()) {
            if (found->isVisible())
                return found;
        }
        return nullptr;
    }

    /// What the window shows, in device pixels.
    QImage grab()
    {
        return host.widget().grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    QtHost host{{"/nowhere", "/nowhere/velmorath-sound.so"}};
    RecordingClient client;
    CGRect field = CGRectMake(20, 100, 200, 60);
    CGTextStyle style{.font = {.size = 17}, .color = CGColor::gray(1)};
    Texts changes;
    int returns = 0;
    std::function<void()> onChange;
};

} // namespace velmorath
