#pragma once

#include <QPixmap>
#include <QString>
#include <vector>

namespace tavrix {

/// Windows side by side in rows, each made small enough for its cell and with a line of text below.
class ContactSheet {
  public:
    void Add(const QPixmap& window, const QString& text);
    /// All of them, on white.
    [[nodiscard]] QPixmap Draw() const;

  private:
    struct Entry {
        QPixmap window;
        QString text;
    };

    std::vector<Entry> entries_;
};

}  // namespace tavrix
