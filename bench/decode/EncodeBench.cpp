// Writing of 24 megapixels as JPEG against the library alone with the same settings, from the same rows and with the
// bytes thrown away. Both sides run in turns in one iteration; the counters are medians in milliseconds.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <vector>

#include <jpeglib.h>

#include "TestPictures.h"
#include "backends/linux/FileSource.h"
#include "common/Measure.h"
#include "imaging/codecs/JpegEncoder.h"
#include "imaging/loading/DecodePicture.h"

namespace tavrix::bench {
namespace {

struct Nowhere : jpeg_destination_mgr {
    std::array<JOCTET, 65536> buffer;
};

void LibraryAlone(const Surface& surface, int quality) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    Nowhere nowhere{};
    const auto refill = [](j_compress_ptr compress) {
        auto& into = *static_cast<Nowhere*>(compress->dest);
        into.next_output_byte = into.buffer.data();
        into.free_in_buffer = into.buffer.size();
    };
    nowhere.init_destination = refill;
    nowhere.empty_output_buffer = [](j_compress_ptr compress) -> boolean {
        compress->dest->init_destination(compress);
        return TRUE;
    };
    nowhere.term_destination = [](j_compress_ptr) {};
    info.dest = &nowhere;
    info.image_width = static_cast<JDIMENSION>(surface.Width());
    info.image_height = static_cast<JDIMENSION>(surface.Height());
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    if (quality >= 90) info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        const auto row = surface.Row(static_cast<int>(info.next_scanline));
        auto* bytes = const_cast<JSAMPLE*>(reinterpret_cast<const JSAMPLE*>(row.data()));
        jpeg_write_scanlines(&info, &bytes, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
}

void JpegOutput(benchmark::State& state) {
    const TestPictures pictures;
    FileSource source(pictures.Jpeg());
    const DecodedPicture decoded = DecodePicture(source);
    const Surface& surface = decoded.picture.pixels->Whole();
    const auto quality = static_cast<int>(state.range(0));
    std::vector<double> library, ours;
    for (auto _ : state) {
        library.push_back(Milliseconds([&] { LibraryAlone(surface, quality); }));
        ours.push_back(Milliseconds([&] {
            if (!EncodeJpeg(surface, quality, [](auto) { return true; }))
                throw std::runtime_error("not written");
        }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["library_ms"] = Median(library);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(library);
}
BENCHMARK(JpegOutput)->Arg(80)->Arg(100)->Iterations(7)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavrix::bench
