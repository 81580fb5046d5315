#pragma once

namespace velmorath {

class Object {
public:
    virtual ~Object() = default;
};

} // namespace velmorath
