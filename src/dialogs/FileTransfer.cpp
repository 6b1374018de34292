#include "dialogs/FileTransfer.h"

#include <utility>

#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"

namespace tavrix {

FileTransfer::FileTransfer(MainModule& module, CopyWindow& window, TransferAct act, TransferWords words)
    : module_(module), window_(window), act_(act), words_(std::move(words)) {}

TransferEnd FileTransfer::Run(std::span<const TransferItem> items) {
    for (const TransferItem& item : items) {
        try {
            switch (Take(item)) {
                case Turn::Next:
                    break;
                case Turn::Stop:
                    return TransferEnd::Stopped;
                case Turn::Cancel:
                    return TransferEnd::Canceled;
            }
        } catch (const RuntimeError& error) {
            window_.Close();
            const std::string& path = item.told.empty() ? item.from : item.told;
            TellFailure(module_, words_.failure, words_.failureTellsPath ? path : item.name, error);
            return TransferEnd::Failed;
        }
    }
    return TransferEnd::Done;
}

FileTransfer::Turn FileTransfer::Take(const TransferItem& item) {
    module_.DoEvents();
    if (module_.CancelCopy) return Turn::Cancel;
    window_.Progress(words_.doing + std::string(NewLine2) + item.name);
    bool asked = words_.replace.empty();
    for (;;) {
        // A drive without a disk looks as if nothing stood there, and the question would not come.
        while (OnNoDisk && LacksDisk(item)) {
            if (!AskForDisk()) return Turn::Stop;
        }
        // One look at the target's folder for most files: in a large one it takes longer than a copy.
        const bool stands = module_.platform.files.FileExists(item.to);
        if (stands && module_.platform.files.Same(item.from, item.to)) return Turn::Next;
        if (!asked && stands) {
            asked = true;
            const forms::Answer answer = AskToReplace(item);
            if (answer == forms::Answer::Cancel) return Turn::Stop;
            if (answer == forms::Answer::No) return Turn::Next;
        }
        if (OnRefuse && OnRefuse(item)) return Turn::Next;
        try {
            return Act(item);
        } catch (const RuntimeError& error) {
            const bool noDisk = error.Number() == ErrorNumber::DiskNotReady || LacksDisk(item);
            if (!OnNoDisk || !noDisk) throw;
        }
        if (!AskForDisk()) return Turn::Stop;
    }
}

forms::Answer FileTransfer::AskToReplace(const TransferItem& item) {
    window_.Hide();
    const forms::Answer answer = module_.app.MessageBox(
        {.text = words_.exists + std::string(NewLine2) + item.name + std::string(NewLine2) + words_.replace,
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNoCancel});
    window_.Show();
    module_.DoEvents();
    return answer;
}

bool FileTransfer::LacksDisk(const TransferItem& item) const {
    constexpr std::size_t RootLength = 3;
    try {
        for (const std::string& path : {item.from, item.to})
            static_cast<void>(module_.platform.files.Info(Left(path, RootLength)));
        return false;
    } catch (const RuntimeError& error) {
        return error.Number() == ErrorNumber::DiskNotReady ||
               error.Number() == ErrorNumber::DeviceUnavailable;
    }
}

bool FileTransfer::AskForDisk() {
    window_.Hide();
    if (!OnNoDisk()) return false;
    window_.Show();
    return true;
}

FileTransfer::Turn FileTransfer::Act(const TransferItem& item) {
    if (!Bring(item)) return Turn::Cancel;
    if (act_ == TransferAct::CopyThenRemove) {
        try {
            module_.platform.files.Delete(item.from);
        } catch (const RuntimeError& error) {
            return OnSourceStays && OnSourceStays(item, error) ? Turn::Next : Turn::Stop;
        }
    }
    if (OnDone) OnDone(item);
    return Turn::Next;
}

bool FileTransfer::Bring(const TransferItem& item) {
    RequireExactly(module_, item.from);
    const GoOn goOn = [this] {
        module_.DoEvents();
        return !module_.CancelCopy;
    };
    Files& files = module_.platform.files;
    return act_ == TransferAct::Move ? files.Move(item.from, item.to, goOn)
                                     : files.Copy(item.from, item.to, goOn);
}

}  // namespace tavrix
