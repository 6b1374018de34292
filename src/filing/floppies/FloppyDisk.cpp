#include "filing/floppies/FloppyDisk.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "dialogs/ContentOf.h"

namespace tavrix {

void FloppyDisk::Require() const {
    static_cast<void>(module_.platform.files.Info(Root()));
}

bool FloppyDisk::Wake(const forms::Form& form) const {
    SkipFailure([&] { static_cast<void>(ContentOf(module_, form, Root())); });
    return !form.Unloaded();
}

bool FloppyDisk::AsksToInsert() const {
    return Asks("Insert a disk into floppy drive " + Root() + " and then press the OK button to continue.");
}

bool FloppyDisk::AsksAgain() const {
    return Asks("A disk could not be found in Floppy Drive " + Root() + std::string(NewLine2) +
                "Insert disk and then try again...");
}

bool FloppyDisk::Asks(const std::string& text) const {
    return module_.app.MessageBox({.text = text, .buttons = forms::BoxButtons::OkCancel}) ==
           forms::Answer::Ok;
}

bool FloppyDisk::WaitsForDisk(const std::function<bool()>& ask) const {
    for (;;) {
        try {
            Require();
            return true;
        } catch (const RuntimeError&) {
            if (!ask()) return false;
        }
    }
}

std::optional<bool> FloppyDisk::HasFiles(const forms::Form& form, const std::function<bool()>& ask) const {
    for (;;) {
        if (!Wake(form)) return std::nullopt;
        try {
            return !module_.platform.files.First(Root() + "*").empty();
        } catch (const RuntimeError&) {
            if (!ask()) return std::nullopt;
        }
    }
}

}  // namespace tavrix
