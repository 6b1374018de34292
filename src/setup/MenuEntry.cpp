#include "setup/MenuEntry.h"

#include <span>

namespace tavrix::setup {
namespace {

std::string Value(const std::string& text) {
    std::string value;
    for (const char c : text) {
        if (c == '\\') {
            value += "\\\\";
        } else if (c == '\n' || c == '\r' || c == '\t') {
            value += ' ';
        } else {
            value += c;
        }
    }
    return value;
}

/// A command line of the shell's. An argument is quoted for the line, and the line then as a value.
std::string CommandLine(std::span<const std::string> arguments) {
    std::string line = "sh";
    for (const std::string& argument : arguments) {
        line += " \"";
        for (const char c : argument) {
            if (c == '"' || c == '`' || c == '$' || c == '\\') line += '\\';
            if (c == '%') line += '%';
            line += c;
        }
        line += '"';
    }
    std::string value;
    for (const char c : line) {
        if (c == '\n') {
            value += "\\n";
            continue;
        }
        if (c == '\\') value += '\\';
        value += c;
    }
    return value;
}

}  // namespace

std::string TextOf(const MenuEntry& entry) {
    std::string text = "[Desktop Entry]\nType=Application\nName=" + Value(entry.name) +
                       "\nComment=" + Value(entry.comment) + "\nExec=" + CommandLine(entry.arguments) +
                       "\nIcon=" + Value(entry.icon) + "\nTerminal=false\nCategories=Graphics;Viewer;\n";
    if (entry.remover.empty()) return text;
    return text + "Actions=remove;\n\n[Desktop Action remove]\nName=Remove from this computer\nExec=" +
           CommandLine(std::span(&entry.remover, 1)) + "\n";
}

}  // namespace tavrix::setup
