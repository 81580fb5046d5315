#pragma once

#include "UIButton.h"
#include "UILabel.h"
#include "UITextView.h"
#include "UIViewController.h"
#include <string>
#include <vector>

namespace velmorath {

class MFMailComposeViewController;

enum class MFMailComposeResult {
    cancelled,
    /// Handed to the machine's mail program.
    sent,
    /// No mail program took it.
    failed,
};

class MFMailComposeViewControllerDelegate {
public:
    virtual ~MFMailComposeViewControllerDelegate() = default;

    /// The user is done. It is for the delegate to dismiss the screen.
    virtual void mailComposeControllerDidFinishWithResult(
        MFMailComposeViewController&, MFMailComposeResult) = 0;
};

/// A mail to write, in plain text and without a subject. What is sent goes to the machine's mail program,
/// which has the user's accounts.
class MFMailComposeViewController : public UIViewController {
public:
    /// Whether the machine has a mail program.
    static bool canSendMail();

    /// May be none; outlives this screen.
    void setMailComposeDelegate(MFMailComposeViewControllerDelegate* delegate) { m_delegate = delegate; }
    /// Recipients and body are set before the screen is presented.
    void setToRecipients(std::vector<std::string> recipients) { m_toRecipients = std::move(recipients); }
    void setMessageBody(std::string body) { m_messageBody = std::move(body); }

    void viewDidLoad() override;
    /// Cancels, as long as nothing that was typed would be lost.
    bool escapePressed() override;
    void viewDidLayoutSubviews() override;

private:
    std::shared_ptr<UIButton> addButton(const std::string& title, std::function<void()> action);
    void send();
    void finish(MFMailComposeResult);

    MFMailComposeViewControllerDelegate* m_delegate = nullptr;
    std::vector<std::string> m_toRecipients;
    /// As it was given: the text view holds what becomes of it.
    std::string m_messageBody;
    std::shared_ptr<UIButton> m_cancel;
    std::shared_ptr<UIButton> m_send;
    std::shared_ptr<UIView> m_recipientsLine;
    std::shared_ptr<UILabel> m_recipients;
    std::shared_ptr<UIView> m_line;
    std::shared_ptr<UITextView> m_body;
};

} // namespace velmorath
