#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "backends/shared/help/HelpBook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using tavrix::HelpBook;
    const auto book = HelpBook::Parse({reinterpret_cast<const char*>(data), size});
    if (!book) return 0;
    if (book->Pages().empty() || book->Pages().size() > HelpBook::MostPages) std::abort();
    for (const tavrix::HelpPage& page : book->Pages()) {
        if (page.title.empty() || page.body.size() > HelpBook::LongestBody) std::abort();
        if (book->Find(page.context) != &page) std::abort();
    }
    return 0;
}
