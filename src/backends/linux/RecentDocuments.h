#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

/// A document for the desktop's list of recent ones (the freedesktop Desktop Bookmark Specification, XBEL).
struct RecentDocument {
    std::string address;   ///< file:///...
    std::string mimeType;  ///< e.g. image/png
    std::time_t used = 0;
};

/// The list with a document added, or with its entry brought up to date: times, and how often this program used it.
/// All else stays byte for byte. An empty text gives a new list; one that is no such list gives nothing, so that
/// it is left alone.
[[nodiscard]] std::optional<std::string> AddRecentDocument(std::string_view list,
                                                           const RecentDocument& document);

/// The list without any document, as it is where there never was one; nothing for a text that is no such list, which is
/// left alone.
[[nodiscard]] std::optional<std::string> ClearedRecentDocuments(std::string_view list);

/// The MIME type by a file name's ending; application/octet-stream for unknown ones.
[[nodiscard]] std::string MimeTypeOf(std::string_view fileName);

}  // namespace tavrix
