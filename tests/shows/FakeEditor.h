#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/forms/Form.h"
#include "shows/SlideEditor.h"

namespace tavrix::test {

/// An editor of shows that is nothing but its list, which follows what it is told.
class FakeEditor final : public forms::Form, public SlideEditor {
  public:
    FakeEditor(forms::Application& application, MainModule& module)
        : Form(application, {.name = "SlideLoadFrm"}), module_(module) {
        ReadRows();
    }

    /// Fills the list from the show.
    void ReadRows() {
        rows.clear();
        for (int i = 0; i < module_.show.Count(); ++i)
            rows.push_back(module_.show.SlideFiles[i]);
    }

    void SlidesRemoved(std::span<const int> indices) override {
        for (auto index = indices.rbegin(); index != indices.rend(); ++index)
            rows.erase(rows.begin() + *index);
    }
    void ShowLoaded(const std::string& path) override {
        ++loads;
        ReadRows();
        filename = path;
    }
    void PathsChanged() override { ReadRows(); }
    void SetFilename(const std::string& path) override { filename = path; }
    [[nodiscard]] std::string Filename() const override { return filename; }
    void EditDescriptions() override {
        ++edits;
        if (onEdit) onEdit();
    }

    std::vector<std::string> rows;
    std::string filename = "Untitled.tvs";
    int loads = 0;
    int edits = 0;
    std::function<void()> onEdit;

  private:
    MainModule& module_;
};

}  // namespace tavrix::test
