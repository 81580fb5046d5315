#include "MFMailComposeViewController.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class MailTest : public ListTest, public MFMailComposeViewControllerDelegate {
protected:
    void compose(std::vector<std::string> recipients, std::string body)
    {
        start({"One"});
        auto composer = std::make_shared<MFMailComposeViewController>();
        composer->setToRecipients(std::move(recipients));
        composer->setMessageBody(std::move(body));
        composer->setMailComposeDelegate(this);
        list().present(composer, false);
        host.draw();
    }
    void mailComposeControllerDidFinishWithResult(
        MFMailComposeViewController& composer, MFMailComposeResult how) override
    {
        result = how;
        composer.dismiss(false);
    }
    void tapSend() { tap({host.screen().size().width - 48, 28}); }
    const Lines& opened() { return host.effects().openedAddresses(); }

    std::optional<MFMailComposeResult> result;
};

TEST_F(MailTest, SendsWhatWasTypedInAddressForm)
{
    compose({"we+you@makers.example", "a&b@c.example"}, "Phone");
    EXPECT_TRUE(host.draw().text("To: we+you@makers.example, a&b@c.example"));
    tap({160, 300});
    ASSERT_TRUE(host.textInput().isEditing());
    EXPECT_TRUE(host.textInput().traits().multiline);
    host.textInput().replaceText("Perché?\n100 % & più\r\n好");
    tapSend();
    EXPECT_EQ(result, MFMailComposeResult::sent);
    EXPECT_EQ(opened(),
        (Lines{"mailto:we%2Byou@makers.example,a%26b@c.example?body="
               "Perch%C3%A9%3F%0D%0A100%20%25%20%26%20pi%C3%B9%0D%0A%E5%A5%BD"}));
    EXPECT_FALSE(presented());
    EXPECT_FALSE(host.textInput().isEditing());
}

TEST_F(MailTest, LeavesOutAnEmptyBodyAndTellsWhenNoMailProgramTookIt)
{
    compose({"a@b.example"}, "");
    tapSend();
    EXPECT_EQ(opened(), (Lines{"mailto:a@b.example"}));
    host.effects().refuseScheme("mailto");
    compose({"a@b.example"}, "Body");
    tapSend();
    EXPECT_EQ(result, MFMailComposeResult::failed);
}

} // namespace
} // namespace velmorath
