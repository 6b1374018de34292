#include "imaging/codecs/BmpWriter.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <numeric>
#include <semaphore>
#include <system_error>
#include <thread>
#include <vector>

#include "imaging/codecs/PixelRows.h"
#include "imaging/graphics/Composite.h"

namespace tavrix {
namespace {

constexpr std::size_t HeadersSize = 14 + 40;
constexpr std::size_t PieceBytes = 256U << 10U;

void Put(std::span<std::byte> into, std::size_t at, std::size_t count, std::uint64_t value) {
    for (std::size_t i = 0; i < count; ++i)
        into[at + i] = static_cast<std::byte>(value >> (8 * i));
}

/// A row over SurfaceBackground: itself where it is opaque, else what is laid into `flat`.
std::span<const Pixel> Flat(std::span<const Pixel> row, std::vector<Pixel>& flat) {
    if (std::reduce(row.begin(), row.end(), ~Pixel{0}, std::bit_and<>()) >= 0xFF000000U) return row;
    flat.assign(row.begin(), row.end());
    for (Pixel& pixel : flat)
        pixel = Over(pixel, ToPixel(SurfaceBackground));
    return flat;
}

std::size_t StrideOf(const Surface& surface) {
    return (3 * static_cast<std::size_t>(surface.Width()) + 3) / 4 * 4;
}

/// Makes the bytes of the file, piece by piece.
class PieceMaker {
  public:
    explicit PieceMaker(const Surface& surface)
        : surface_(surface),
          stride_(StrideOf(surface)),
          pieceBytes_(std::max<std::size_t>((stride_ + PieceBytes - 1) / PieceBytes, 1) * PieceBytes),
          beyond_(std::max(stride_, HeadersSize)),
          nextRow_(surface.Height()) {
        flat_.reserve(static_cast<std::size_t>(surface.Width()));
        PutHeaders();
    }

    /// The bytes that Next needs to work in.
    [[nodiscard]] std::size_t Room() const { return pieceBytes_ + stride_; }

    /// The next piece, made in `room`; nothing when all is made.
    std::span<const std::byte> Next(std::span<std::byte> room) {
        std::ranges::copy(std::span(beyond_).first(kept_), room.begin());
        std::size_t made = kept_;
        for (; made < pieceBytes_ && nextRow_ > 0; made += stride_) {
            const auto row = room.subspan(made, stride_);
            const std::size_t used = 3 * static_cast<std::size_t>(surface_.Width());
            Bgr24FromPixels(Flat(surface_.Row(--nextRow_), flat_), row.first(used));
            std::ranges::fill(row.subspan(used), std::byte{0});
        }
        const std::size_t taken = std::min(made, pieceBytes_);
        kept_ = made - taken;
        std::ranges::copy(room.subspan(taken, kept_), beyond_.begin());
        return room.first(taken);
    }

  private:
    void PutHeaders() {
        const std::size_t imageSize = stride_ * static_cast<std::size_t>(surface_.Height());
        Put(beyond_, 0, 2, 0x4D42);  // "BM"
        Put(beyond_, 2, 4, HeadersSize + imageSize);
        Put(beyond_, 10, 4, HeadersSize);
        Put(beyond_, 14, 4, 40);
        Put(beyond_, 18, 4, static_cast<std::uint64_t>(surface_.Width()));
        Put(beyond_, 22, 4, static_cast<std::uint64_t>(surface_.Height()));
        Put(beyond_, 26, 2, 1);
        Put(beyond_, 28, 2, 24);
        Put(beyond_, 34, 4, imageSize);
        kept_ = HeadersSize;
    }

    const Surface& surface_;
    std::size_t stride_;
    std::size_t pieceBytes_;  ///< at least a row
    std::vector<std::byte> beyond_;
    std::size_t kept_ = 0;  ///< bytes at the start of beyond_ that belong to the next piece
    int nextRow_;           ///< from the top, one more
    std::vector<Pixel> flat_;
};

using WritePiece = std::function<void(std::span<const std::byte>)>;

/// A thread that makes the next pieces while those before are written. Throws std::system_error where there is none.
class Ahead {
  public:
    explicit Ahead(PieceMaker& maker) : maker_(maker) {
        for (auto& room : rooms_)
            room.resize(maker.Room());
        thread_ = std::jthread([this] { Make(); });
    }
    ~Ahead() {
        givenUp_ = true;
        free_.release();
    }
    Ahead(const Ahead&) = delete;
    Ahead& operator=(const Ahead&) = delete;

    void WriteAll(const WritePiece& write) {
        for (std::size_t turn = 0;; ++turn) {
            made_.acquire();
            const auto piece = pieces_[turn % Rooms];
            if (piece.empty()) return;
            write(piece);
            free_.release();
        }
    }

  private:
    static constexpr std::size_t Rooms = 3;

    void Make() {
        for (std::size_t turn = 0;; ++turn) {
            free_.acquire();
            if (givenUp_) return;
            const auto piece = maker_.Next(rooms_[turn % Rooms]);
            pieces_[turn % Rooms] = piece;
            made_.release();
            if (piece.empty()) return;
        }
    }

    PieceMaker& maker_;
    std::array<std::vector<std::byte>, Rooms> rooms_;
    std::array<std::span<const std::byte>, Rooms> pieces_;
    std::counting_semaphore<> free_{Rooms};
    std::counting_semaphore<> made_{0};
    std::atomic<bool> givenUp_{false};
    std::jthread thread_;
};

/// Where there are no more threads: nothing.
std::unique_ptr<Ahead> AheadOf(PieceMaker& maker) {
    try {
        return std::make_unique<Ahead>(maker);
    } catch (const std::system_error&) {
        return nullptr;
    }
}

}  // namespace

std::uint64_t BmpSize(const Surface& surface) {
    return HeadersSize + std::uint64_t{StrideOf(surface)} * static_cast<std::uint64_t>(surface.Height());
}

void WriteBmp(const Surface& surface, const WritePiece& write) {
    constexpr std::uint64_t WorthAThread = 8U << 20U;
    PieceMaker maker(surface);
    if (BmpSize(surface) >= WorthAThread && std::thread::hardware_concurrency() > 1) {
        if (const auto ahead = AheadOf(maker)) {
            ahead->WriteAll(write);
            return;
        }
    }
    std::vector<std::byte> room(maker.Room());
    for (auto piece = maker.Next(room); !piece.empty(); piece = maker.Next(room))
        write(piece);
}

}  // namespace tavrix
