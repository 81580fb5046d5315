#pragma once

#include "QtHost.h"
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace velmorath {

/// Writes down what the host says, and draws what a test wants drawn.
class RecordingClient final : public HostClient {
public:
    void touchesChanged(const std::vector<HostTouch>& changed, double) override
    {
        touches.insert(touches.end(), changed.begin(), changed.end());
        ++touchCalls;
    }
    void scrolled(CGPoint, CGVector by) override { scrolls.push_back(by); }
    bool keyPressed(const HostKeyPress& press) override
    {
        keys.push_back(press);
        return true;
    }
    bool documentOpened(const Result<std::string>& file) override
    {
        documents.push_back(file ? *file : "error");
        return true;
    }
    void documentsChanged() override { ++documentChanges; }
    void screenChanged() override { ++screenChanges; }
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
    bool pressElement(std::int64_t identifier) override
    {
        pressed.push_back(identifier);
        return true;
    }
    bool performElementAction(std::int64_t identifier, std::size_t action) override
    {
        performed.emplace_back(identifier, action);
        return true;
    }
    bool focusElement(std::int64_t identifier) override
    {
        focused.push_back(identifier);
        return true;
    }
    void wake() override { ++wakes; }
    void stateChanged(HostState state) override { states.push_back(state); }
    void willTerminate() override { }

    std::vector<HostTouch> touches;
    int touchCalls = 0;
    std::vector<CGVector> scrolls;
    std::vector<HostKeyPress> keys;
    std::vector<std::string> documents;
    int documentChanges = 0;
    int screenChanges = 0;
    int frames = 0;
    std::function<void()> onFrame;
    CGRect damage = CGRect::null();
    std::vector<CGRect> drawn;
    std::function<void(CGContext&)> drawing;
    AccessibilityElement tree;
    int readings = 0;
    std::vector<std::int64_t> pressed;
    std::vector<std::pair<std::int64_t, std::size_t>> performed;
    std::vector<std::int64_t> focused;
    int wakes = 0;
    std::vector<HostState> states;
};

/// A whole host with its window, on Qt's screen that nobody sees.
class HostFixture : public testing::Test {
protected:
    HostFixture()
    {
        host.attach(client);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&host.widget()));
        QTest::qWait(60);
        client.drawn.clear();
        client.frames = 0;
        client.screenChanges = 0;
        client.states.clear();
    }
    ~HostFixture() override { host.detach(); }

    /// What the window shows, in device pixels.
    QImage grab()
    {
        return host.widget().grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    QtHost host{{"/nowhere", "/nowhere/velmorath-sound.so"}};
    RecordingClient client;
};

} // namespace velmorath
