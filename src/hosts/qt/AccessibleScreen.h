#pragma once

#include <QAccessibleWidget>

namespace velmorath {

class AccessibleMirror;

/// The window as screen readers know it: the elements of the mirror, then the editor if there is one.
class AccessibleScreen final : public QAccessibleWidget {
public:
    /// Makes Qt know the window of every ScreenWidget as one of these, and report the focus of what is on it;
    /// and every LineEditor as an AccessibleLine.
    static void install();

    /// The mirror and its screen outlive this.
    explicit AccessibleScreen(const AccessibleMirror&);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface*) const override;
    QAccessibleInterface* focusChild() const override;

private:
    int elementCount() const;

    const AccessibleMirror& m_mirror;
};

} // namespace velmorath
