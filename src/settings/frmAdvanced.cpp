#include "settings/frmAdvanced.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/Settings.h"
#include "core/SettingsText.h"

namespace tavrix {
namespace {

constexpr const char* NoCdRom = "No CD-ROM";
constexpr std::array<const char*, 2> Floppies{"A:\\", "B:\\"};

/// How long the preview of the open dialog waits.
struct Delay {
    const char* name;
    std::int16_t milliseconds;  ///< that it stands for
    std::int16_t end;           ///< it is selected for a value below this
};

constexpr std::int16_t AnyDelay = 32767;
constexpr std::array<Delay, 8> Delays{{{"No Delay", 1, 250},
                                       {"1/4 Second", 250, 500},
                                       {"1/2 Second", 500, 1000},
                                       {"1 Second", 1000, 2000},
                                       {"2 Seconds", 2000, 3000},
                                       {"3 Seconds", 3000, 4000},
                                       {"4 Seconds", 4000, 5000},
                                       {"5 Seconds", 5000, AnyDelay}}};

int DelayOf(std::int16_t milliseconds) {
    const auto found =
        std::ranges::find_if(Delays, [milliseconds](const Delay& delay) { return milliseconds < delay.end; });
    return static_cast<int>(found == Delays.end() ? Delays.size() - 1
                                                  : static_cast<std::size_t>(found - Delays.begin()));
}

}  // namespace

frmAdvanced::frmAdvanced(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmAdvanced"}), module_(module) {
    Caption = "Advanced Settings";
    HelpContext = HelpContext::AdvancedSettings;
    lblFloppy.Caption = "De&fault floppy disk drive:";
    lblFloppy.SetBuddy(ComboFloppy);
    lblCDROM.Caption = "CD-&ROM drive used for CD-Audio:";
    lblCDROM.SetBuddy(ComboCDROM);
    CmdDefaultCD.Caption = "D&efault";
    CmdDefaultCD.ToolTip = "Select the first CD-ROM drive of this computer.";
    CmdDefaultCD.OnClick = [this] { CmdDefaultCD_Click(); };
    lblDelay.Caption = "Delay before &showing preview in open dialog:";
    lblDelay.SetBuddy(ComboDelay);
    lblDelayNote.Caption = "(1/2 Second is the default setting.)";
    CheckRecycleBin.Caption = "Use Recycle &Bin when deleting files.";
    CheckRecentDocs.Caption = "&Add opened files to Recent Documents in Start menu.";
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Save changes.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't save changes.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::AdvancedSettings); };
    using namespace forms;
    SetLayout(Column({Grid(3, {lblFloppy, ComboFloppy, Stretch(), lblCDROM, ComboCDROM, CmdDefaultCD,
                               lblDelay, ComboDelay, lblDelayNote}),
                      CheckRecycleBin, CheckRecentDocs, Row({Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void frmAdvanced::Form_Load() {
    const AppConfig& c = module_.config;
    for (const char* drive : Floppies)
        ComboFloppy.AddItem(drive);
    ComboFloppy.ListIndex = c.DefaultFloppy == Floppies[1] ? 1 : 0;
    ListCdDrives();
    if (!module_.CdDevicePresent || c.CdRomDriveLetter.empty()) {
        ComboCDROM.ListIndex = 0;
    } else {
        SelectCdDrive(c.CdRomDriveLetter);
    }
    for (const Delay& delay : Delays)
        ComboDelay.AddItem(delay.name);
    ComboDelay.ListIndex = DelayOf(c.OpenPreviewTimer);
    CheckRecycleBin.Value = c.UseRecycleBin;
    CheckRecentDocs.Value = c.UseRecentDocuments;
}

void frmAdvanced::ListCdDrives() {
    ComboCDROM.AddItem(NoCdRom);
    SkipFailure([this] {
        constexpr std::size_t entryLength = 4;  // "A:\" and a NUL
        Drives& drives = module_.platform.drives;
        const std::string roots = drives.Roots();
        for (std::size_t at = 0; at + entryLength <= roots.size(); at += entryLength) {
            const std::string root = roots.substr(at, entryLength - 1);
            if (drives.Type(root) == DriveType::CdRom) ComboCDROM.AddItem(root);
        }
    });
}

bool frmAdvanced::SelectCdDrive(const std::string& drive) {
    for (int row = 1; row < ComboCDROM.ListCount(); ++row) {
        if (!EqualIgnoringCase(tavrix::Left(ComboCDROM.List(row), 1), tavrix::Left(drive, 1))) continue;
        ComboCDROM.ListIndex = row;
        return true;
    }
    return false;
}

void frmAdvanced::CmdDefaultCD_Click() {
    if (module_.Busy()) return;
    const std::string drive = FindCdRomDrive(module_);
    // A drive that was not there when the list was made joins it.
    if (!drive.empty() && !SelectCdDrive(drive)) {
        ComboCDROM.AddItem(drive);
        ComboCDROM.ListIndex = ComboCDROM.ListCount() - 1;
    }
    App().MessageBox({.text = drive.empty()
                                  ? "This computer does not appear to have a CD-ROM drive, unable to "
                                    "set default..."
                                  : drive + " is your default CD-ROM drive..."});
}

void frmAdvanced::CmdOK_Click() {
    if (module_.Busy()) return;
    AppConfig& c = module_.config;
    c.DefaultFloppy = ComboFloppy.List(ComboFloppy.ListIndex);
    const int cdRom = ComboCDROM.ListIndex;
    if (cdRom == 0) c.CdRomDriveLetter.clear();
    if (cdRom > 0) c.CdRomDriveLetter = ComboCDROM.List(cdRom);  // with none selected the letter stays
    c.UseRecycleBin = CheckRecycleBin.Value;
    c.UseRecentDocuments = CheckRecentDocs.Value;
    c.OpenPreviewTimer = Delays.at(static_cast<std::size_t>(ComboDelay.ListIndex.Get())).milliseconds;
    SettingsWriter write(module_);
    write.Text("DefaultFloppy", c.DefaultFloppy);
    write.Text("CdRomDriveLetter", c.CdRomDriveLetter);
    write.Flag("UseRecycleBin", c.UseRecycleBin);
    write.Flag("UseRecentDocuments", c.UseRecentDocuments);
    write.Number("OpenPreviewTimer", c.OpenPreviewTimer);
    SkipFailure([&] { write.WriteTo(SettingsFile(module_)); });
    App().Unload(*this);
}

}  // namespace tavrix
