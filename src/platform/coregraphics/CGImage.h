#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// A decoded picture. Hosts derive their own kind from it; everyone else only holds and measures it.
class CGImage {
public:
    virtual ~CGImage() = default;

    /// In pixels of the picture.
    virtual CGSize pixelSize() const = 0;
};

} // namespace velmorath
