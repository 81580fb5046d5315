#pragma once

namespace velmorath {

/// The root of every class whose objects are told apart at run time.
class Object {
public:
    virtual ~Object() = default;
};

} // namespace velmorath
