#include "MFMailComposeViewController.h"
#include "Bundle.h"
#include "Host.h"
#include "UIApplication.h"
#include "UIReadableColumn.h"

namespace velmorath {

namespace {

constexpr CGFloat barHeight = 56;
constexpr CGFloat buttonWidth = 120;
constexpr CGFloat recipientsHeight = 48;
constexpr CGFloat hairline = 0.5;
constexpr CGFloat margin = 16;
const CGColor backgroundColor = CGColor::gray(0.1);
const CGColor lineColor = CGColor::gray(0.35);

std::string joined(const std::vector<std::string>& texts, std::string_view separator)
{
    std::string all;
    for (const std::string& text : texts) {
        if (!all.empty())
            all += separator;
        all += text;
    }
    return all;
}

std::string encodedRecipient(const std::string& recipient)
{
    std::string encoded = percentEncoded(recipient);
    if (const std::size_t at = encoded.rfind("%40"); at != std::string::npos)
        encoded.replace(at, 3, "@");
    return encoded;
}

/// In a mail, lines end in a carriage return and a line feed.
std::string withMailLineBreaks(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        if (c == '\n')
            result += '\r';
        if (c != '\r')
            result += c;
    }
    return result;
}

std::string mailAddress(const std::vector<std::string>& recipients, const std::string& body)
{
    std::string address = "mailto:";
    for (const std::string& recipient : recipients)
        address += (address.ends_with(':') ? "" : ",") + encodedRecipient(recipient);
    if (!body.empty())
        address += "?body=" + percentEncoded(withMailLineBreaks(body));
    return address;
}

/// The line of the recipients: read, as every field of the form, when keys come to it.
class Recipients : public UIView {
public:
    bool canBecomeFocused() const override { return true; }
    std::optional<UIAccessibilityInfo> accessibilityInfo() override
    {
        return UIAccessibilityInfo{{.role = AccessibilityRole::text, .label = accessibilityLabel()}};
    }
};

} // namespace

bool MFMailComposeViewController::canSendMail()
{
    return Host::current().effects().canSendMail();
}

std::shared_ptr<UIButton> MFMailComposeViewController::addButton(
    const std::string& title, std::function<void()> action)
{
    auto button = std::make_shared<UIButton>();
    button->setTitle(Bundle::main().localizedString(title));
    button->addTarget([action = std::move(action)](UIControl&) { action(); });
    view()->addSubview(button);
    return button;
}

void MFMailComposeViewController::viewDidLoad()
{
    view()->setBackgroundColor(backgroundColor);
    view()->setAccessibilityLabel(Bundle::main().localizedString("Message"));
    m_cancel = addButton("Cancel", [this] { finish(MFMailComposeResult::cancelled); });
    m_send = addButton("Send", [this] { send(); });
    m_send->setFont(UIFont::boldSystemFont(17));
    m_cancel->setContentHorizontalAlignment(CGTextAlignment::left);
    m_send->setContentHorizontalAlignment(CGTextAlignment::right);

    m_recipients = std::make_shared<UILabel>();
    m_recipients->setText(Bundle::main().localizedString("To: %1", {joined(m_toRecipients, ", ")}));
    m_recipients->setTextColor(UIColor::white());
    m_recipientsLine = std::make_shared<Recipients>();
    m_recipientsLine->setAccessibilityLabel(m_recipients->text());
    m_recipientsLine->addSubview(m_recipients);
    view()->addSubview(m_recipientsLine);

    m_line = std::make_shared<UIView>();
    m_line->setBackgroundColor(lineColor);
    view()->addSubview(m_line);

    m_body = std::make_shared<UITextView>(CGRect{});
    m_body->setFont(UIFont::systemFont(17));
    m_body->setTextColor(UIColor::white());
    m_body->setText(m_messageBody);
    m_body->setTextContainerInset(margin);
    m_body->setAccessibilityLabel(Bundle::main().localizedString("Message"));
    view()->addSubview(m_body);
}

void MFMailComposeViewController::viewDidLayoutSubviews()
{
    const CGSize size = view()->bounds().size;
    const CGRect column = readableColumn(view()->bounds().insetBy(margin, 0));
    const CGFloat x = column.minX();
    const CGFloat width = column.size.width;
    m_cancel->setFrame(CGRectMake(x, 0, buttonWidth, barHeight));
    m_send->setFrame(CGRectMake(column.maxX() - buttonWidth, 0, buttonWidth, barHeight));

    const CGFloat bodyTop = barHeight + recipientsHeight;
    m_recipientsLine->setFrame(CGRectMake(0, barHeight, size.width, recipientsHeight));
    m_recipients->setFrame(CGRectMake(x, 0, width, recipientsHeight));
    m_line->setFrame(CGRectMake(x, barHeight + recipientsHeight, width, hairline));
    m_body->setFrame(CGRectMake(0, bodyTop, size.width, std::max(0.0, size.height - bodyTop)));
}

void MFMailComposeViewController::send()
{
    // What an input method still holds belongs to the text.
    view()->endEditing();
    const auto address = URL::parse(mailAddress(m_toRecipients, m_body->text()));
    const bool isTaken = address && UIApplication::shared().openURL(*address);
    finish(isTaken ? MFMailComposeResult::sent : MFMailComposeResult::failed);
}

bool MFMailComposeViewController::escapePressed()
{
    if (m_body->text() == m_messageBody)
        finish(MFMailComposeResult::cancelled);
    return true;
}

void MFMailComposeViewController::finish(MFMailComposeResult result)
{
    if (m_delegate)
        m_delegate->mailComposeControllerDidFinishWithResult(*this, result);
}

} // namespace velmorath
