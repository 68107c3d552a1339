// SPDX-License-Identifier: MIT
//
// Checks for updates when the user asks, downloads the one the user wants, proves it genuine and
// hands it to the desktop's installer. Main thread; the signature is checked on a worker thread.
#pragma once

#include "services/update/PackageSignature.h"
#include "services/update/PrivateFile.h"
#include "services/update/SecureTransfer.h"
#include "services/update/UpdateEnvironment.h"
#include "services/update/UpdateItem.h"
#include "services/update/UpdateState.h"

#include <QFutureWatcher>
#include <QObject>

#include <memory>

namespace trovell {

/// idle → checking → upToDate, or available → downloading → verifying → ready. Every step on the
/// way may lead to failed instead, and then nothing is left on the disk.
///
/// The feed itself is not signed: that it comes from the publisher, and with it the version a
/// package claims to have, rests on https. What is installed rests on the signature alone.
class Updater final : public QObject {
    Q_OBJECT

public:
    /// Both are checked when they are used.
    Updater(const QUrl& feedAddress, const QString& publicKey, UpdateEnvironment environment);
    ~Updater() override;

    [[nodiscard]] const UpdateState& state() const { return m_state; }
    /// Checking, downloading or verifying.
    [[nodiscard]] bool isBusy() const;

    /// Reads the feed. While busy, what runs goes on instead.
    void check();
    /// Fetches the available update.
    void download();
    /// Hands the ready update to the installer.
    void install();
    /// Ends what is busy with the error `cancelled`.
    void cancel();
    /// Back to idle, unless busy. An update that was not handed over is deleted.
    void dismiss();

Q_SIGNALS:
    /// At every `check`, before anything else: the moment to show a window or bring it forward.
    void checkRequested();
    /// After every change, and while downloading at every full percent.
    void stateChanged(const UpdateState& state);

private:
    using Arrival = void (Updater::*)(std::optional<UpdateError>);

    void fetch(const QUrl& address, SecureTransfer::Limits limits, SecureTransfer::Sink sink,
               Arrival arrival);
    [[nodiscard]] std::optional<UpdateError> takeFeedBytes(const QByteArray& bytes);
    [[nodiscard]] std::optional<UpdateError> takePackageBytes(const QByteArray& bytes);
    void feedArrived(std::optional<UpdateError> error);
    void packageArrived(std::optional<UpdateError> error);
    void packageVerified();

    /// What is wrong with `item` before a byte of it is fetched. Keeps its signature.
    [[nodiscard]] std::optional<UpdateError> prepareItem(const UpdateItem& item);
    void showProgress();
    void fail(UpdateError error);
    void enter(UpdateState::Phase phase);
    void setState(const UpdateState& state);
    void endTransfer();

    const QUrl m_feedAddress;
    const QString m_publicKeyText;
    const UpdateEnvironment m_environment;
    UpdateState m_state;

    PublicKey m_publicKey{};
    PackageSignature m_signature{};
    UpdateItem m_item;
    QByteArray m_feed;
    qint64 m_receivedBytes = 0;
    std::unique_ptr<PrivateFile> m_package;
    std::unique_ptr<SecureTransfer> m_transfer;
    QFutureWatcher<Expected<void, UpdateError>> m_verification;
};

} // namespace trovell
