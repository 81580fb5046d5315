#include "CALayerState.h"

namespace velmorath {

CGAffineTransform CALayerState::toSuperlayer() const
{
    return CGAffineTransform::translation(-bounds.midX(), -bounds.midY())
        .concatenated(transform)
        .concatenated(CGAffineTransform::translation(position.x, position.y));
}

CGRect CALayerState::drawnArea() const
{
    if (!shadow)
        return bounds;
    const CGFloat reach = -2 * shadow->radius;
    return bounds.united(shadow->path.offsetBy(shadow->offset.dx, shadow->offset.dy).insetBy(reach, reach));
}

} // namespace velmorath
