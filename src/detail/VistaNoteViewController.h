#pragma once

#include "CGColor.h"
#include "ToDoItem2.h"
#include "UILabel.h"
#include "UITextView.h"
#include "UIViewController.h"
#include "delegatoRicaricaNote.h"
#include <cstdint>
#include <optional>
#include <vector>

namespace velmorath {

/// One note in full, to read and to edit. Closed by `chiudi` it forgets what was typed; closed by `ok`
/// it hands the changed list to its delegate, which saves it.
class VistaNoteViewController : public UIViewController {
public:
    void viewWillAppear(bool animated) override;
    /// Closes without saving, as long as nothing that was typed would be lost.
    bool escapePressed() override;
    void viewDidLayoutSubviews() override { }

    /// The close button.
    void chiudi();
    /// The save button.
    void ok();

    /// Receives the changed list. May be none; outlives this screen.
    delegatoRicaricaNote* delegate = nullptr;
    std::weak_ptr<UITextView> testo;
    std::weak_ptr<UIView> barra;
    /// Shows nothing; tells those who do not see the bar what its colour says.
    std::weak_ptr<UILabel> intestazione;
    std::vector<std::shared_ptr<ToDoItem2>> arrayNotePortato;
    std::optional<std::int64_t> indirizzoNotaDaVisualizzare;
    std::optional<CGColor> coloreNota;

private:
    /// The note that is shown. Without a place in the list there is none, which is fatal.
    ToDoItem2& note() const;
    std::shared_ptr<UITextView> textView() const;
};

} // namespace velmorath
