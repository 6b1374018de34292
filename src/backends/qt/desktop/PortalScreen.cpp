#include "backends/qt/desktop/PortalScreen.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "backends/qt/bus/BusCall.h"
#include "backends/qt/clipboard/SurfaceOfImage.h"
#include "backends/qt/desktop/PortalAnswer.h"
#include "backends/qt/desktop/Settling.h"
#include "backends/qt/desktop/WallpaperAddress.h"
#include "base/RuntimeError.h"

namespace tavrix::qt {

namespace {

using namespace std::chrono_literals;

/// For the desktop to take our hidden windows away: nobody tells when it has. Its own animations take 150 to 250 ms.
constexpr auto SettleTime = 400ms;
/// The user may have to answer a question.
constexpr auto AnswerLimit = 120s;

/// Whether a file is the portal's own, and not one that it keeps among the user's pictures.
bool IsTemporary(const QString& file) {
    const QString path = QDir::cleanPath(file);
    const std::array<QString, 3> folders{
        QDir::tempPath(), qEnvironmentVariable("XDG_RUNTIME_DIR"),
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)};
    return std::ranges::any_of(folders, [&](const QString& folder) {
        return !folder.isEmpty() && path.startsWith(QDir::cleanPath(folder) + QLatin1Char('/'));
    });
}

}  // namespace

std::optional<Surface> CaptureByPortal() {
    LetMessagesRun(SettleTime);
    PortalAnswer answer;
    const QVariantMap options{{QStringLiteral("handle_token"), answer.Token()},
                              {QStringLiteral("interactive"), false}};
    const auto asked = CallOnBus({"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                  "org.freedesktop.portal.Screenshot", "Screenshot"},
                                 {QString(), options});
    if (!asked) return std::nullopt;
    const std::optional<QVariantMap> results = answer.Wait(AnswerLimit);
    if (!results) return std::nullopt;

    const QString file =
        QFile::decodeName(FileOfAddress(results->value(QStringLiteral("uri")).toString()).c_str());
    if (!QFile::exists(file)) throw RuntimeError(ErrorNumber::FileNotFound);
    const QImage image(file);
    if (IsTemporary(file)) QFile::remove(file);
    if (image.isNull()) throw RuntimeError(ErrorNumber::InvalidPicture);
    return SurfaceOfImage(image);
}

}  // namespace tavrix::qt
