#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/ShowOptions.h"
#include "platform/services/Files.h"

namespace tavrix {

/// Which characters the texts of a file are written in. It has to know all of them before the first is written.
class ShowFileEncoding {
  public:
    void Add(std::string_view item);
    /// The bytes of an item. They read back as the same text in any file that holds some of the added items and no
    /// others: also in one that was left unfinished.
    [[nodiscard]] std::string Encode(std::string_view item) const;

  private:
    bool windows1252_ = true;  ///< each item can be read back from it by itself
};

/// Writes a show's file: an item a line, texts in quotes. A quote or a line end inside a text is not guarded against.
/// Failures are those of the file's writer.
class ShowFileWriter {
  public:
    ShowFileWriter(std::unique_ptr<FileWriter> file, ShowFileEncoding encoding)
        : file_(std::move(file)), encoding_(encoding) {}

    /// Signature, version and options. They have been handed to the file when it returns.
    void WriteHeader(const ShowOptions& options);
    void WriteSlide(std::string_view path, std::string_view description);
    /// Finishes the file; without it, it holds what was handed on until then.
    void Close();

  private:
    void Text(std::string_view item);
    void Integer(int value);
    void Flag(bool value);
    void Flush();

    std::unique_ptr<FileWriter> file_;
    ShowFileEncoding encoding_;
    std::string waiting_;  ///< bytes that are handed on together
};

}  // namespace tavrix
