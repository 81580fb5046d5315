#pragma once

#include "Configuration.h"
#include "UIButton.h"
#include "UILabel.h"

namespace velmorath {

/// A banner that invites the user, in the user's language, to look at two other applications: a tap on
/// an icon opens the application's page in the store. Its content is the interface file "PubblicitaView",
/// which must be known when a banner is made.
class PubblicitaView : public UIView {
public:
    explicit PubblicitaView(const CGRect& frame);

    /// The action of both icons: the tag 1 stands for the first application, any other for the second.
    void iconaCliccata(const UIView& sender);

    std::shared_ptr<UILabel> labeltestoPubblicitario;
    /// What the interface file holds.
    std::shared_ptr<UIView> view;
    std::weak_ptr<UIButton> iconaApp1;
    std::weak_ptr<UIButton> iconaApp2;
    const std::string appId1{configuration::appId1};
    const std::string appId2{configuration::appId2};

private:
    void loadContent();
    void setHeader();
};

} // namespace velmorath
