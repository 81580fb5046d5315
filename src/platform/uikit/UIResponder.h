#pragma once

#include "Object.h"
#include <memory>
#include <vector>

namespace velmorath {

struct HostKeyPress;
class UITouch;
using UITouches = std::vector<std::shared_ptr<UITouch>>;

/// Something that touches and typing can be addressed to. At most one object is the first responder:
/// the one that is typed into.
class UIResponder : public Object {
public:
    ~UIResponder() override;

    virtual void touchesBegan(const UITouches&) { }
    virtual void touchesMoved(const UITouches&) { }
    virtual void touchesEnded(const UITouches&) { }
    /// A recognizer or the machine took the touches away.
    virtual void touchesCancelled(const UITouches&) { }

    /// A key was pressed while this, or something in it, has the focus. False hands it on to what lies
    /// around.
    virtual bool keyPressed(const HostKeyPress&) { return false; }

    /// False when it refuses, or when the first responder up to now does not want to give way.
    virtual bool becomeFirstResponder();
    virtual bool resignFirstResponder();
    bool isFirstResponder() const { return current() == this; }

    static UIResponder* current() { return s_current; }

protected:
    static void setCurrent(UIResponder* responder) { s_current = responder; }

private:
    inline static UIResponder* s_current = nullptr;
};

} // namespace velmorath
