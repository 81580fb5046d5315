#include "VistaNoteViewController.h"
#include "Bundle.h"
#include "FatalError.h"
#include "Print.h"
#include "UIColor.h"

namespace velmorath {

ToDoItem2& VistaNoteViewController::note() const
{
    if (!indirizzoNotaDaVisualizzare || *indirizzoNotaDaVisualizzare < 0
        || *indirizzoNotaDaVisualizzare >= static_cast<std::int64_t>(arrayNotePortato.size()))
        fatalError("The note to show is not in the list");
    return *arrayNotePortato[static_cast<std::size_t>(*indirizzoNotaDaVisualizzare)];
}

std::shared_ptr<UITextView> VistaNoteViewController::textView() const
{
    std::shared_ptr<UITextView> connected = testo.lock();
    if (!connected)
        fatalError("The note's text view is not connected");
    return connected;
}

void VistaNoteViewController::viewWillAppear(bool)
{
    const ToDoItem2& shown = note();
    if (shown.completed)
        coloreNota = UIColor::systemGreen().withAlpha(0.6);
    const std::shared_ptr<UIView> bar = barra.lock();
    if (!bar)
        fatalError("The note's colour bar is not connected");
    bar->setBackgroundColor(coloreNota.value_or(UIColor::clear()));
    if (const std::shared_ptr<UILabel> heading = intestazione.lock()) {
        heading->setAccessibilityLabel(
            Bundle::main().localizedString(shown.completed ? "Completed note" : "Open note"));
    }
    textView()->setText(shown.text);
}

bool VistaNoteViewController::escapePressed()
{
    if (textView()->text() == note().text.value_or(""))
        chiudi();
    return true;
}

void VistaNoteViewController::chiudi()
{
    print("chiudi");
    dismiss(true);
}

void VistaNoteViewController::ok()
{
    print("chiudo e salvo la modifica :");
    ToDoItem2& edited = note();
    // The text view always has a text; a note without one is therefore changed by being saved.
    if (edited.text == textView()->text()) {
        dismiss(true);
        return;
    }
    print("la nota è stata modificata quindi devo passare il nuovo array nell altra vista :");
    const std::string& newText = textView()->text();
    if (newText.empty())
        arrayNotePortato.erase(arrayNotePortato.begin() + *indirizzoNotaDaVisualizzare);
    else
        edited.text = newText;
    dismiss(true, [self = std::static_pointer_cast<VistaNoteViewController>(shared_from_this())] {
        print("");
        if (self->delegate)
            self->delegate->nuovoArrayNote(self->arrayNotePortato);
    });
}

} // namespace velmorath
