#pragma once

#include <array>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

namespace tavrix {

/// Gives the memory of a progressive picture's coefficients back to the system while its rows are put out, so that
/// the coefficients and the pixels are never in memory both at their full size. It stands between the library and
/// its memory manager; the rows of a picture must be put out once, from the top.
class CoefficientRelease {
  public:
    /// To be called once, before the decompression starts. Takes the client_data of `info`.
    void Attach(jpeg_decompress_struct& info);

  private:
    struct Array {
        jvirt_barray_ptr handle = nullptr;
        std::size_t rowBytes = 0;
        JDIMENSION released = 0;  ///< rows from the top that are given back
    };

    static jvirt_barray_ptr Request(j_common_ptr info, int pool, boolean zeroed, JDIMENSION blocks,
                                    JDIMENSION rows, JDIMENSION atOnce);
    static JBLOCKARRAY Access(j_common_ptr info, jvirt_barray_ptr handle, JDIMENSION start, JDIMENSION count,
                              boolean writable);
    static void Release(Array& array, JBLOCKARRAY rows, JDIMENSION start);

    decltype(jpeg_memory_mgr::request_virt_barray) request_ = nullptr;
    decltype(jpeg_memory_mgr::access_virt_barray) access_ = nullptr;
    std::array<Array, MAX_COMPONENTS> arrays_{};
    std::size_t count_ = 0;
};

}  // namespace tavrix
