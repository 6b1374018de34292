/// tavrix-manual man DATE | bash
///
/// Writes the manual page or the completion for bash to the standard output, from the tables that the program itself reads
/// its command line and its files by. DATE is the release's, year-month-day.

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "core/CommandWords.h"
#include "core/ImageKinds.h"
#include "core/Version.h"

namespace {

using namespace tavrix;

/// A text as it stands in a manual page: a minus sign is one, and no line begins with a command.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped.push_back(c);
        }
    }
    if (escaped.starts_with('.') || escaped.starts_with('\'')) escaped.insert(0, "\\&");
    return escaped;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Escaped(text) + "\\fR";
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

std::string Entry(const std::string& tag, std::string_view text) {
    return ".TP\n" + tag + "\n" + Escaped(text) + ".\n";
}

/// The endings of the images that the command line opens; it looks at four characters.
std::string OpenedEndings(std::string_view between) {
    std::string endings;
    for (const ImageKind& kind : ImageKinds) {
        if (!kind.opens || kind.ending.size() != 4) continue;
        if (!endings.empty()) endings += between;
        endings += LowerCase(kind.ending.substr(1));
    }
    return endings;
}

std::string ManualPage(std::string_view date) {
    std::string page = R"(.TH TAVRIX 1 )" + std::string(date) + " \"Tavrix " + VersionText +
                       R"(" "User Commands"
.SH NAME
tavrix \- view images, edit them, and play slide shows
.SH SYNOPSIS
.B tavrix
.RI [ path | word ]
.br
.B tavrix
.RB [ )" + Escaped(OpenOption) +
                       R"( | )" + Escaped(FullScreenOption) + R"( ]
.RI [ file ]
.SH DESCRIPTION
Tavrix opens an image fast and shows it at its own size.
It is driven by menus and keys.
It makes simple edits, shows thumbnails, finds, copies, moves and deletes image files, and makes slide shows with sound,
which can run as the screen saver.
.PP
The command line is taken as one text.
It is not split at blanks, so a path needs no quotation marks of its own.
A slash before a word is allowed.
Capital and small letters are the same, but for )" +
                       Bold(WordOf(Command::Saver)) + R"(.
.TP
.I path
opens an image (a name that ends in )" +
                       OpenedEndings(", ") + R"() or plays a slide show (tvs).
It can be a path of the system, the address of a file, or a path with the letter of a drive, where C: is the whole system.
)";
    for (const CommandWord& command : CommandWords) {
        std::string tag;
        for (const std::string_view word : command.Words())
            tag += (tag.empty() ? "" : ", ") + Bold(word);
        if (!command.argument.empty()) tag += " \\fIpath\\fR";
        page += Entry(tag, command.argument.empty()
                               ? std::string(command.does)
                               : "with " + std::string(command.argument) + ": " + std::string(command.does));
    }
    page += ".SH OPTIONS\nThese are for the menus of desktops.\n";
    for (const DesktopOption& option : DesktopOptions)
        page += Entry(Bold(option.option) + " [\\fIfile\\fR]", option.does);
    page += R"(.SH ENVIRONMENT
.TP
.B TAVRIX_HOME
the program's folder, which holds the settings and the folder of shows.
.TP
.B TAVRIX_SHARED
the folder of the files that all users share.
.TP
.B TAVRIX_TEMP
the temporary folder.
Where others may enter it, a private one in it is used.
.TP
.B TAVRIX_DRIVES
the drives, such as
.IR C=/;D=/srv/pictures,fixed;E=/music/album.cue,cdrom .
.TP
.B TAVRIX_CONFIG
the folder of what belongs to the account.
.TP
.B TAVRIX_SOUND_FONTS
the folder of the sound fonts that MIDI files are played with.
.TP
.BR XDG_CONFIG_HOME ", " XDG_DATA_HOME
hold the user's own notes, as everywhere.
.SH FILES
.TP
.I ~/.local/share/tavrix/tavrix.ini
the settings.
Keys and lines that Tavrix does not know stay as they are.
.TP
.I ~/.local/share/tavrix/SLIDES
the folder that shows are offered in first.
.TP
.I ~/.config/tavrix
what belongs to the account: where the program is, and values that other systems keep in a registry.
.SH SEE ALSO
.BR tavrix\-idle (1)
.PP
The help of the program: press F1 in any of its windows.
)";
    return page;
}

std::string Completion() {
    std::string words;
    // One word for each command.
    for (const CommandWord& command : CommandWords)
        words += (words.empty() ? "" : " ") + std::string(command.words.front());
    std::string options;
    for (const DesktopOption& option : DesktopOptions)
        options += (options.empty() ? "" : " ") + std::string(option.option);
    const std::string endings = OpenedEndings("|");
    std::string text = R"(# Completion for tavrix, made from the program's own tables.

_tavrix()
{
    local cur prev words cword
    _init_completion -n : || return
    if [[ $cword -gt 1 ]]; then
        case ${words[1]} in
            @SAVER@) _filedir tvs ;;
            @OPTIONS@) _filedir ;;
        esac
    else
        case $cur in
            -*) COMPREPLY=($(compgen -W "@OPTION_WORDS@" -- "$cur")) ;;
            *)
                COMPREPLY=($(compgen -W "@WORDS@" -- "$cur"))
                _filedir '@(@ENDINGS@|tvs)'
                # Small letters do for a word, where no file begins with them.
                [[ ${#COMPREPLY[@]} -gt 0 ]] || COMPREPLY=($(compgen -W "@WORDS@" -- "${cur^^}"))
                ;;
        esac
    fi
    # Readline takes what is behind a colon for a word of its own.
    __ltrim_colon_completions "$cur"
} &&
    complete -F _tavrix tavrix
)";
    const auto put = [&text](std::string_view mark, const std::string& value) {
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += value.size())
            text.replace(at, mark.size(), value);
    };
    put("@SAVER@", std::string(WordOf(Command::Saver)));
    put("@OPTIONS@", std::string(OpenOption) + " | " + std::string(FullScreenOption));
    put("@OPTION_WORDS@", options);
    put("@WORDS@", words);
    put("@ENDINGS@", endings);
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    std::string text;
    if (argc == 3 && std::strcmp(argv[1], "man") == 0) text = ManualPage(argv[2]);
    if (argc == 2 && std::strcmp(argv[1], "bash") == 0) text = Completion();
    if (text.empty()) {
        std::fputs("usage: tavrix-manual man DATE | bash\n", stderr);
        return 2;
    }
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? 0
                                                                                                       : 1;
}
