#include "StrikeThroughText.h"
#include "FatalError.h"

namespace velmorath {

StrikeThroughText::StrikeThroughText(const CGRect& frame)
    : UITextField(frame)
{
    setMinimumFontSize(12.0);
    strikeThroughLayer->setBackgroundColor(UIColor::white());
    strikeThroughLayer->setHidden(true);
    layer().addSublayer(strikeThroughLayer);
}

StrikeThroughText::StrikeThroughText(KeyedUnarchiver&)
    : UITextField(CGRect::null())
{
    fatalError("NSCoding not supported");
}

void StrikeThroughText::setStrikeThrough(bool strikeThrough)
{
    m_strikeThrough = strikeThrough;
    strikeThroughLayer->setHidden(!strikeThrough);
    if (strikeThrough)
        placeLine();
}

void StrikeThroughText::layoutSubviews()
{
    UITextField::layoutSubviews();
    placeLine();
}

void StrikeThroughText::placeLine()
{
    strikeThroughLayer->setFrame(CGRectMake(0, bounds().size.height * 0.5, 50.0, kStrikeOutThickness));
}

} // namespace velmorath
