#pragma once

namespace velmorath {

/// Told when the tutorial has closed.
class delegatoTutorialChiuso {
public:
    virtual ~delegatoTutorialChiuso() = default;

    virtual void chiusoTutorial() = 0;
};

} // namespace velmorath
