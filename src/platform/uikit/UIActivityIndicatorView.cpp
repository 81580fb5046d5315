#include "UIActivityIndicatorView.h"
#include "Bundle.h"

namespace velmorath {

namespace {

constexpr int spokes = 12;
constexpr double secondsPerTurn = 1;
constexpr CGFloat innerRadius = 9;
constexpr CGFloat spokeLength = 9;
constexpr CGFloat spokeWidth = 3;
constexpr double fullTurn = 6.283185307179586;

CGAffineTransform rotation(double angle)
{
    const double sine = std::sin(angle), cosine = std::cos(angle);
    return {cosine, sine, -sine, cosine, 0, 0};
}

} // namespace

UIActivityIndicatorView::UIActivityIndicatorView(const CGRect& frame)
    : UIView(frame)
{
    setHidden(true);
}

void UIActivityIndicatorView::setAnimating(bool isAnimating)
{
    setHidden(!isAnimating);
    startOrStopTurning();
}

void UIActivityIndicatorView::startOrStopTurning()
{
    if (isHidden() || !window())
        m_turning.invalidate();
    else if (!m_turning.isRunning())
        m_turning = CADisplayLink([this](double now) {
            setDrawn(m_spoke, static_cast<int>(std::fmod(now / secondsPerTurn, 1) * spokes));
        });
}

std::optional<UIAccessibilityInfo> UIActivityIndicatorView::accessibilityInfo()
{
    return UIAccessibilityInfo{
        {.role = AccessibilityRole::progress, .label = Bundle::main().localizedString("In progress")}};
}

void UIActivityIndicatorView::draw(CGContext& context) const
{
    for (int spoke = 0; spoke < spokes; ++spoke) {
        const int behind = (m_spoke - spoke + spokes) % spokes;
        context.saveState();
        context.concatenate(
            rotation(fullTurn * spoke / spokes)
                .concatenated(CGAffineTransform::translation(bounds().midX(), bounds().midY())));
        context.fill(CGRectMake(-spokeWidth / 2, -innerRadius - spokeLength, spokeWidth, spokeLength),
            spokeWidth / 2, m_color.withAlpha(m_color.alpha * std::max(0.25, 1 - behind * 0.1)));
        context.restoreState();
    }
}

} // namespace velmorath
