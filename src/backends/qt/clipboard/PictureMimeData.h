#pragma once

#include <QMimeData>

#include "imaging/graphics/Picture.h"

namespace tavrix::qt {

/// A picture on offer to other programs. It is encoded when one of them asks, each time anew.
class PictureMimeData final : public QMimeData {
  public:
    /// The picture is whole and opaque.
    explicit PictureMimeData(Picture picture) : picture_(std::move(picture)) {}

    [[nodiscard]] const Picture& ThePicture() const { return picture_; }
    [[nodiscard]] QStringList formats() const override;

  protected:
    QVariant retrieveData(const QString& type, QMetaType wanted) const override;

  private:
    Picture picture_;
};

}  // namespace tavrix::qt
