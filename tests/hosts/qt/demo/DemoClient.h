#pragma once

#include "Host.h"
#include <map>

namespace velmorath {

/// A client that needs nothing but the seam: rows as a list has them, a dot under each finger, and an
/// editor over the row that is tapped. For looking at a host by hand, and for measuring it.
class DemoClient final : public HostClient, public TextInputClient {
public:
    explicit DemoClient(Host&);

    void touchesChanged(const std::vector<HostTouch>&, double time) override;
    void scrolled(CGPoint location, CGVector by) override;
    bool keyPressed(const HostKeyPress&) override { return false; }
    void screenChanged() override;
    CGRect prepareFrame() override;
    void draw(CGContext&, const CGRect& area) override;
    AccessibilityElement accessibilityTree() override { return {}; }
    bool pressElement(std::int64_t) override { return false; }
    bool performElementAction(std::int64_t, std::size_t) override { return false; }
    bool focusElement(std::int64_t) override { return false; }
    void wake() override { }
    void stateChanged(HostState) override;
    void willTerminate() override;

    void textInputDidChange(const std::string& utf8) override;
    void textInputDidReturn() override;

    /// Twelve rows that fill the size, each with a gradient over it and two texts.
    static void drawRows(
        CGContext&, CGSize, double offset, int editedRow, const std::map<int, std::string>& texts);

private:
    void edit(CGPoint);
    void damage(const CGRect&);
    CGRect textRect() const;

    Host& m_host;
    CGRect m_damage = CGRect::null();
    std::map<std::int64_t, CGPoint> m_fingers;
    std::map<int, std::string> m_texts;
    double m_offset = 0;
    int m_editedRow = -1;
};

} // namespace velmorath
