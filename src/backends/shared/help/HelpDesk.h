#pragma once

#include <functional>
#include <optional>
#include <string>

#include "backends/shared/help/HelpBook.h"
#include "platform/services/Files.h"
#include "platform/services/Help.h"

namespace tavrix {

/// The window that shows help pages.
class HelpScreen {
  public:
    virtual ~HelpScreen() = default;
    /// Opens the window on a page, or brings it to the front and turns to the page. The book lives until Close.
    virtual void Open(const HelpBook& book, unsigned context) = 0;
    /// Takes the window away, where there is one.
    virtual void Close() = 0;
};

/// Help from a help file. The file is read when help is asked for the first time, and not before.
class HelpDesk final : public Help {
  public:
    using Tell = std::function<void(const std::string& text)>;

    /// `otherPlace` gives the path at which a help file is looked for that is not where it is said to be. `tell` gives
    /// the user a message.
    HelpDesk(Files& files, HelpScreen& screen, std::function<std::string()> otherPlace, Tell tell)
        : files_(files), screen_(screen), otherPlace_(std::move(otherPlace)), tell_(std::move(tell)) {}

    /// A file that is missing or no help file is told to the user.
    void Show(const std::string& file, HelpCommand command, unsigned data) override;

  private:
    /// Takes the pages of a file; what was wrong, or empty.
    [[nodiscard]] std::string Read(const std::string& path);

    Files& files_;
    HelpScreen& screen_;
    std::function<std::string()> otherPlace_;
    Tell tell_;
    std::optional<HelpBook> book_;
    std::string path_;  ///< of the book
};

}  // namespace tavrix
