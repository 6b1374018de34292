#pragma once

#include <QEventLoop>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <chrono>
#include <optional>

namespace tavrix::qt {

/// The answer to one request to the portal, which comes as a signal of an object that the request makes.
class PortalAnswer final : public QObject {
    Q_OBJECT

  public:
    /// Listens from here on, so that an answer is not missed that comes at once.
    PortalAnswer();
    ~PortalAnswer() override;

    /// The word by which the request is to be made ("handle_token").
    [[nodiscard]] const QString& Token() const { return token_; }
    /// Lets messages run, but for what the user does in the program's windows, until the answer has come: what it
    /// holds, or nothing where the user refused or the time is up.
    [[nodiscard]] std::optional<QVariantMap> Wait(std::chrono::milliseconds limit);

  public slots:
    void Respond(uint response, const QVariantMap& results);

  private:
    QString token_;
    QString path_;
    QEventLoop loop_;
    bool come_ = false;
    std::optional<QVariantMap> results_;
};

}  // namespace tavrix::qt
