#pragma once

#include "HostClient.h"
#include <QAccessible>
#include <QTimer>
#include <QWidget>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace velmorath {

class AccessibleElement;

/// Shows to screen readers what the client says is on the screen. Without any that listens nothing is asked
/// or kept; with one the client is asked after frames, and what has become different is reported.
class AccessibleMirror final : private QAccessible::ActivationObserver {
public:
    /// Takes an event to whoever listens.
    using Report = void (*)(QAccessibleEvent*);

    explicit AccessibleMirror(QWidget& screen, Report listener = QAccessible::updateAccessibility);
    ~AccessibleMirror() override;
    AccessibleMirror(const AccessibleMirror&) = delete;
    AccessibleMirror& operator=(const AccessibleMirror&) = delete;

    QWidget& screen() const { return m_screen; }
    HostClient* client() const { return m_client; }
    /// Nothing when there is none.
    void setClient(HostClient*);

    /// A frame was made at this moment, in seconds. While others follow, only a few of them count.
    void frameMade(bool othersFollow, double now);
    /// Says where on the screen keys go. Nothing while they go to none of its elements.
    void reportFocus() const;
    /// Says this after what the next frame changes.
    void announce(const std::string& text);

    /// These are for the interfaces. What has just gone is still known. The pointers hold until the next
    /// frame.
    const AccessibilityElement& root() const { return m_root; }
    const AccessibilityElement* element(std::int64_t identifier) const;
    /// The element that this one is in; nothing when it is on the screen itself.
    const AccessibilityElement* around(std::int64_t identifier) const;
    /// Null for an element that is not there.
    QAccessibleInterface* interface(std::int64_t identifier) const;
    /// Null when keys go to none of them.
    QAccessibleInterface* focusedInterface() const { return interface(m_focused); }

private:
    struct Place {
        const AccessibilityElement* element;
        const AccessibilityElement* around;
        AccessibleElement* interface;
    };
    using Places = std::map<std::int64_t, Place>;

    /// Nothing when there is none.
    const Place* place(std::int64_t identifier) const;

    void accessibilityActiveChanged(bool active) override;
    void show(AccessibilityElement root);
    void collect(const AccessibilityElement& around, const Places& before);
    /// Those of these elements that are where they were: in the same one, in the same order. What was moved
    /// is reported as gone and come again.
    void collectStaying(const AccessibilityElement& around, std::set<std::int64_t>& staying) const;
    void reportNew(const std::set<std::int64_t>& staying, const Places& before) const;
    void reportChanges(const Places& before);

    void letGo(const Places& before);
    void reportGone();
    void report(QAccessibleInterface*, QAccessible::Event) const;
    void reportAnnounced();
    void reportStates(const Place&, const AccessibilityElement& before);

    QWidget& m_screen;
    Report m_report;
    HostClient* m_client = nullptr;
    bool m_isActive;
    /// Since when each frame was followed by another; nothing when the last was not.
    std::optional<double> m_movingSince;
    AccessibilityElement m_root;
    Places m_places;
    std::int64_t m_focused = 0;
    /// What has gone from the screen, for as long as readers may look at where they come from.
    AccessibilityElement m_goneRoot;
    Places m_gone;
    QTimer m_going;
    /// What was not said yet.
    std::vector<QString> m_announced;
};

} // namespace velmorath
