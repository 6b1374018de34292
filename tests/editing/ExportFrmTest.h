#pragma once

#include "editing/SavingTest.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"

namespace tavrix::test {

/// A user who exports the image on show.
class ExportFrmTest : public SavingTest {
  protected:
    static constexpr const char* Colon = "A filename may not contain a colon (:), unable to export image...";
    static constexpr const char* Slash = "A filename may not contain a slash (/), unable to export image...";
    static constexpr const char* Backslash =
        "A filename may not contain a backslash (\\), unable to export image...";

    void InBmp(const std::function<void(ExportBmpFrm&)>& action) {
        InDialog<ExportBmpFrm>(View().menu.mnuExportBMP, "ExportBmpFrm", action);
    }
    void InJpg(const std::function<void(ExportJpgFrm&)>& action) {
        InDialog<ExportJpgFrm>(View().menu.mnuExportJPG, "ExportJpgFrm", action);
    }
    void ExpectNew(const std::string& path, forms::Answer reply) {
        ExpectQuestion("About to export the image as:\r\n\r\n" + path + "\r\n\r\nIs this filename OK?",
                       reply);
    }
    void ExpectNotExported(const std::string& path, const std::string& description) {
        ExpectStop("Unable to export image:\r\n\r\n" + path + "\r\n\r\n" + description + "...");
    }
    /// Exports the image on show under a new name in C:\p.
    void ExportJpg(const std::string& name) {
        InJpg([&](ExportJpgFrm& dialog) {
            Enter(dialog.Target.txtFilename, name);
            ExpectNew("C:\\p\\" + name, forms::Answer::Yes);
            Press(dialog.Buttons.CmdExport);
        });
    }
    /// What the entry says without opening its dialog.
    void ExpectRefused(forms::Menu& entry, const std::string& text) {
        ExpectTold(text);
        entry.Click();
        EXPECT_EQ(app.FormCount(), 1);
        ExpectIdle();
    }
};

}  // namespace tavrix::test
