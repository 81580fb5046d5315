#pragma once

#include "AccessibleMirror.h"
#include "Clock.h"
#include "Fingers.h"
#include "HostClient.h"
#include "ShadowCache.h"
#include "TextCache.h"
#include <QTimer>
#include <QWidget>
#include <deque>

class QNativeGestureEvent;

namespace velmorath {

/// The window: one surface that the client paints, and the source of fingers and scrolling. Between
/// frames that were asked for it does nothing at all.
class ScreenWidget final : public QWidget {
public:
    explicit ScreenWidget(const Clock&);

    /// Called from now on; nothing when there is none.
    void setClient(HostClient*);

    TextCache& texts() { return m_texts; }
    const AccessibleMirror& mirror() const { return m_mirror; }
    /// See Effects::announce().
    void announce(const std::string& text);

    /// See Screen::requestFrame().
    void requestFrame();

    /// Hands these files to the client, one after the other, as soon as it has a use for them.
    void open(const std::vector<std::string>& paths);

protected:
    bool event(QEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void dragEnterEvent(QDragEnterEvent*) override;
    void dropEvent(QDropEvent*) override;
    bool focusNextPrevChild(bool) override { return false; }

private:
    bool touchEvent(QTouchEvent&);
    void pinchEvent(const QNativeGestureEvent&);
    bool isInSight() const;
    bool displayPacesFrames() const;
    void scheduleFrame();
    void makeFrame();
    void openWaitingFiles();
    void screenChanged();

    const Clock& m_clock;
    HostClient* m_client = nullptr;
    AccessibleMirror m_mirror;
    TextCache m_texts;
    ShadowCache m_shadows;
    Fingers m_fingers;
    QTimer m_frameTimer;
    double m_lastFrame = 0;
    bool m_lastFramePainted = false;
    double m_scale = 0;
    bool m_frameWanted = false;
    std::deque<Result<std::string>> m_waitingFiles;
};

} // namespace velmorath
