// The screen as the portal shows it.

#include <QDBusObjectPath>
#include <QImage>

#include "desktop/DesktopBus.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

/// The portal answers a request for the screen by a signal, before or after the reply to the call.
class PortalScreenTest : public DesktopBusTest {
  protected:
    static QString PathOfRequest(const QDBusMessage& call) {
        QString sender = call.service().mid(1);
        sender.replace('.', '_');
        const auto options = qdbus_cast<QVariantMap>(call.arguments().at(1));
        EXPECT_FALSE(options.value("interactive").toBool());
        return "/org/freedesktop/portal/desktop/request/" + sender + "/" +
               options.value("handle_token").toString();
    }
    void Answers(uint response, const QVariantMap& results) {
        services->Offer(
            "org.freedesktop.portal.Desktop",
            {{"Screenshot", [response, results](const QDBusMessage& call, const QDBusConnection& bus) {
                  const QString path = PathOfRequest(call);
                  QDBusMessage signal = QDBusMessage::createTargetedSignal(
                      call.service(), path, "org.freedesktop.portal.Request", "Response");
                  signal.setArguments({response, results});
                  bus.send(signal);
                  return QVariantList{QVariant::fromValue(QDBusObjectPath(path))};
              }}});
    }
    static QImage Image() {
        QImage image(5, 3, QImage::Format_ARGB32);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 5; ++x)
                image.setPixel(x, y, qRgb(10 * x, 20 * y, 99));
        }
        return image;
    }
    void ExpectImage(const std::optional<Surface>& screen) const {
        ASSERT_TRUE(screen);
        ASSERT_EQ(screen->Width(), 5);
        ASSERT_EQ(screen->Height(), 3);
        for (int y = 0; y < 3; ++y) {
            for (unsigned x = 0; x < 5; ++x)
                EXPECT_EQ(screen->Row(y)[x], OpaquePixel(10 * x, 20 * static_cast<unsigned>(y), 99));
        }
    }
};

TEST_F(PortalScreenTest, APictureOfThePortalsOwnIsReadAndRemoved) {
    const QString file = folder.filePath("shot 1.png");
    ASSERT_TRUE(file.startsWith(QDir::tempPath()));
    ASSERT_TRUE(Image().save(file));
    Answers(0, {{"uri", "file://" + folder.path() + "/shot%201.png"}});
    ExpectImage(desktop->Capture());
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PortalScreenTest, AmongTheUsersPicturesItIsKept) {
    QDir(folder.path()).mkdir("temporary");
    qputenv("TMPDIR", folder.filePath("temporary").toUtf8());
    const QString file = folder.filePath("shot.png");
    ASSERT_TRUE(Image().save(file));
    Answers(0, {{"uri", "file://" + file}});
    ExpectImage(desktop->Capture());
    EXPECT_TRUE(QFile::exists(file));
    qunsetenv("TMPDIR");
}

TEST_F(PortalScreenTest, AUserWhoRefuses) {
    for (const uint response : {1U, 2U}) {
        Answers(response, {});
        EXPECT_FALSE(desktop->Capture());
    }
}

TEST_F(PortalScreenTest, WithoutAPortalNobodyCanLook) {
    EXPECT_FALSE(desktop->Capture());
    services->Offer("org.freedesktop.portal.Desktop", {});
    EXPECT_FALSE(desktop->Capture());
}

TEST_F(PortalScreenTest, APictureThatIsNoneIsAFailure) {
    const std::string file = Put("shot.png", "no picture");
    Answers(0, {{"uri", QString::fromStdString("file://" + file)}});
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(desktop->Capture()); }), 481);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(file)));
}

TEST_F(PortalScreenTest, AFileThatIsNotThereIsAFailure) {
    Answers(0, {{"uri", "file:///nowhere/shot.png"}});
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(desktop->Capture()); }), 53);
}

TEST_F(PortalScreenTest, AnAnswerWithoutAFileIsAFailure) {
    Answers(0, {});
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(desktop->Capture()); }), 53);
}

}  // namespace
}  // namespace tavrix
