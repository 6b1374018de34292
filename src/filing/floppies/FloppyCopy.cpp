#include "filing/floppies/FloppyCopy.h"

namespace tavrix {

void CopyWithFloppy(MainModule& module, const FloppyDisk& disk, std::span<const TransferItem> items,
                    const FloppyCopyWords& words) {
    CopyWindow window(module);
    window.Tell("Tavrix is preparing to copy files...");
    FileTransfer transfer(module, window, TransferAct::Copy,
                          {.doing = "Tavrix is copying the file:",
                           .failure = "Aborting, unable to copy the file:",
                           .replace = words.replace});
    transfer.OnNoDisk = [&disk] { return disk.AsksAgain(); };
    const TransferEnd end = transfer.Run(items);
    window.Close();
    if (end == TransferEnd::Canceled) {
        module.DoEvents();
        module.app.MessageBox({.text = words.canceled, .icon = forms::BoxIcon::Exclamation});
    }
}

std::vector<TransferItem> ItemsBetween(const std::string& from, const std::string& to,
                                       const std::vector<std::string>& names) {
    std::vector<TransferItem> items;
    items.reserve(names.size());
    for (const std::string& name : names)
        items.push_back({from + name, to + name, name});
    return items;
}

}  // namespace tavrix
