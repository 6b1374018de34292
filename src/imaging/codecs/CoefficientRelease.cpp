#include "imaging/codecs/CoefficientRelease.h"

#include <algorithm>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace tavrix {
namespace {

/// Gives back the whole pages between two addresses. Their content is lost.
void GiveBack([[maybe_unused]] std::byte* begin, [[maybe_unused]] std::byte* end) {
#ifdef __linux__
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t from = (reinterpret_cast<std::uintptr_t>(begin) + page - 1) / page * page;
    const std::uintptr_t to = reinterpret_cast<std::uintptr_t>(end) / page * page;
    if (from < to) madvise(reinterpret_cast<void*>(from), to - from, MADV_DONTNEED);
#endif
}

}  // namespace

void CoefficientRelease::Attach(jpeg_decompress_struct& info) {
    info.client_data = this;
    request_ = info.mem->request_virt_barray;
    access_ = info.mem->access_virt_barray;
    info.mem->request_virt_barray = Request;
    info.mem->access_virt_barray = Access;
}

jvirt_barray_ptr CoefficientRelease::Request(j_common_ptr info, int pool, boolean zeroed, JDIMENSION blocks,
                                             JDIMENSION rows, JDIMENSION atOnce) {
    auto& self = *static_cast<CoefficientRelease*>(info->client_data);
    const jvirt_barray_ptr handle = self.request_(info, pool, zeroed, blocks, rows, atOnce);
    if (self.count_ < self.arrays_.size()) self.arrays_[self.count_++] = {handle, blocks * sizeof(JBLOCK), 0};
    return handle;
}

JBLOCKARRAY CoefficientRelease::Access(j_common_ptr info, jvirt_barray_ptr handle, JDIMENSION start,
                                       JDIMENSION count, boolean writable) {
    auto& self = *static_cast<CoefficientRelease*>(info->client_data);
    const JBLOCKARRAY rows = self.access_(info, handle, start, count, writable);
    if (writable == FALSE) {  // only the output asks so, and never again for rows above
        const auto found = std::ranges::find(self.arrays_, handle, &Array::handle);
        if (found != self.arrays_.end()) Release(*found, rows, start);
    }
    return rows;
}

/// The library keeps an array whole in memory, so the pointers to the rows above stand before those it gave.
void CoefficientRelease::Release(Array& array, JBLOCKARRAY rows, JDIMENSION start) {
    if (start <= array.released) return;
    // The last page of the row before was shared and could not be given back yet.
    JDIMENSION row = array.released == 0 ? 0 : array.released - 1;
    const auto at = [&](JDIMENSION index) { return reinterpret_cast<std::byte*>(*(rows - (start - index))); };
    while (row < start) {
        std::byte* const begin = at(row);
        std::byte* end = begin + array.rowBytes;
        for (++row; row < start && at(row) == end; ++row)
            end += array.rowBytes;
        GiveBack(begin, end);
    }
    array.released = start;
}

}  // namespace tavrix
