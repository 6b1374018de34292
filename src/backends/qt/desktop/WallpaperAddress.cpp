#include "backends/qt/desktop/WallpaperAddress.h"

#include <QFile>
#include <QUrl>

namespace tavrix::qt {

namespace {

constexpr QLatin1String Scheme("file://");

}  // namespace

QString AddressOfFile(const std::string& file) {
    // From the bytes of the name, which need not be text.
    const QByteArray bytes = QByteArray::fromStdString(file);
    return Scheme + QString::fromLatin1(bytes.toPercentEncoding("/"));
}

std::string FileOfAddress(const QString& text) {
    if (text.startsWith(QLatin1Char('/'))) return QFile::encodeName(text).toStdString();
    if (!text.startsWith(Scheme)) return {};
    const QString path = text.mid(Scheme.size());
    // What stands between the slashes is the name of this machine, where there is any.
    const qsizetype root = path.indexOf(QLatin1Char('/'));
    return root < 0 ? std::string() : QByteArray::fromPercentEncoding(path.mid(root).toUtf8()).toStdString();
}

}  // namespace tavrix::qt
