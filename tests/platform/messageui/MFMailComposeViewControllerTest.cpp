#include "MFMailComposeViewController.h"
#include "Story.h"

namespace velmorath {
namespace {

class MailTest : public Story, public MFMailComposeViewControllerDelegate {
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

    std::optional<MFMailComposeResult> result;
};

TEST_F(MailTest, SendsWhatWasTypedInAddressForm)
{
    compose({"we+you@makers.example", "a&b@c.example"}, "Phone");
    EXPECT_TRUE(host.draw().text("To: we+you@makers.example, a&b@c.example"));
    then("typing", [&] { tap({160, 300}); });
    EXPECT_TRUE(host.textInput().traits().multiline);
    host.textInput().replaceText("Perché?\n100 % & più\r\n好");
    then("sent", [&] { tapSend(); });
    EXPECT_EQ(result, MFMailComposeResult::sent);
}

TEST_F(MailTest, LeavesOutAnEmptyBodyAndTellsWhenNoMailProgramTookIt)
{
    compose({"a@b.example"}, "");
    then("sent", [&] { tapSend(); });
    host.effects().refuseScheme("mailto");
    compose({"a@b.example"}, "Body");
    then("refused", [&] { tapSend(); });
    EXPECT_EQ(result, MFMailComposeResult::failed);
}

} // namespace
} // namespace velmorath
