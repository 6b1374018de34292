#include "backends/qt/ProgramIcon.h"

#include <QIconEngine>
#include <QPixmap>
#include <QResource>
#include <array>
#include <cstddef>
#include <mutex>
#include <optional>
#include <span>
#include <utility>

#include "backends/qt/peers/SurfaceImage.h"
#include "imaging/loading/DecodePicture.h"

/// The resource is in a static library, which nothing else would bring in. Its own function is in no namespace.
static void LoadResource() {
    Q_INIT_RESOURCE(icons);
}

namespace tavrix::qt {
namespace {

constexpr std::array Sides{16, 24, 32, 48, 64};  ///< pixels

}  // namespace

class ProgramIcon::Pictures {
  public:
    Pictures() {
        LoadResource();
        for (std::size_t i = 0; i < Sides.size(); ++i)
            files_[i] = QResource(QStringLiteral(":/icons/%1/tavrix.png").arg(Sides[i])).uncompressedData();
    }

    void Decode() {
        std::call_once(decoded_, [this] {
            // By our own decoder: the toolkit looks through its plugins for each kind of file first.
            for (std::size_t i = 0; i < Sides.size(); ++i) {
                MemorySource source(std::as_bytes(
                    std::span(files_[i].constData(), static_cast<std::size_t>(files_[i].size()))));
                const DecodedPicture decoded = DecodePicture(source);
                if (decoded.picture.pixels) images_[i] = ImageOf(decoded.picture.pixels->Whole());
            }
        });
    }

    /// Belongs to the thread of the windows, as pixmaps do.
    const QIcon& Icon() {
        if (icon_) return *icon_;
        Decode();
        icon_.emplace();
        for (QImage& image : images_) {
            if (!image.isNull()) icon_->addPixmap(QPixmap::fromImage(std::exchange(image, QImage())));
        }
        return *icon_;
    }

  private:
    std::array<QByteArray, Sides.size()> files_;
    std::array<QImage, Sides.size()> images_;
    std::once_flag decoded_;
    std::optional<QIcon> icon_;
};

/// What a window asks when it is made.
class ProgramIcon::Engine final : public QIconEngine {
  public:
    explicit Engine(std::shared_ptr<Pictures> pictures) : pictures_(std::move(pictures)) {}

    [[nodiscard]] QIconEngine* clone() const override { return new Engine(pictures_); }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        pictures_->Icon().paint(painter, place, Qt::AlignCenter, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return pictures_->Icon().actualSize(size, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return pictures_->Icon().pixmap(size, 1, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        return pictures_->Icon().pixmap(size, 1, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return pictures_->Icon().availableSizes(mode, state);
    }

  private:
    std::shared_ptr<Pictures> pictures_;
};

ProgramIcon::ProgramIcon() : pictures_(std::make_shared<Pictures>()) {}

void ProgramIcon::Decode() const {
    pictures_->Decode();
}

QIcon ProgramIcon::Icon() const {
    return QIcon(new Engine(pictures_));  // which owns it
}

}  // namespace tavrix::qt
