#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace tavrix::qt {

/// A text in lines that all fit into a room: in the font that is wished for, or in the largest smaller one that does it.
/// Below the smallest readable size what does not fit is cut at the room's lower edge.
class FittedText {
  public:
    static constexpr int SmallestPixels = 8;  ///< logical ones

    FittedText(const QString& text, const QFont& wished, const QSize& room);

    void Draw(QPainter& painter, const QPoint& corner) const;

    [[nodiscard]] QFont Font() const { return layout_.font(); }
    [[nodiscard]] int Lines() const { return layout_.lineCount(); }
    [[nodiscard]] bool Fits() const { return fits_; }

  private:
    void BreakIntoLines(const QFont& font);

    QTextLayout layout_;
    QSize room_;
    bool fits_ = false;
};

}  // namespace tavrix::qt
