// SPDX-License-Identifier: MIT

#include "services/update/Updater.h"

#include "services/update/UpdateChoice.h"
#include "services/update/UpdateFeedParser.h"

#include <QRegularExpression>
#include <QtConcurrentRun>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Phase = UpdateState::Phase;

/// The installer is found by the ending of the name.
QString packageName(const QUrl& address)
{
    static const QRegularExpression unsafe(u"[^0-9A-Za-z._+~-]|^[.-]+"_s);
    constexpr qsizetype maximumLength = 100;
    const QString name = address.fileName().remove(unsafe).right(maximumLength);
    return u"trovell-update-"_s + name;
}

} // namespace

Updater::Updater(const QUrl& feedAddress, const QString& publicKey, UpdateEnvironment environment)
    : m_feedAddress(feedAddress), m_publicKeyText(publicKey), m_environment(std::move(environment))
{
    connect(&m_verification, &QFutureWatcherBase::finished, this, &Updater::packageVerified);
}

Updater::~Updater() = default;

bool Updater::isBusy() const
{
    return m_state.phase == Phase::checking || m_state.phase == Phase::downloading ||
           m_state.phase == Phase::verifying;
}

void Updater::check()
{
    Q_EMIT
    checkRequested();
    if (isBusy())
        return;
    m_package.reset();
    m_feed.clear();
    const auto key = publicKeyFromText(m_publicKeyText);
    if (!key)
        return fail(UpdateError::publicKeyMalformed);
    if (!ReleaseVersion::parse(m_environment.programVersion))
        return fail(UpdateError::programVersionUnknown);
    m_publicKey = *key;
    fetch(
        m_feedAddress, {m_environment.silenceTimeout, m_environment.feedTimeout},
        [this](const QByteArray& bytes) { return takeFeedBytes(bytes); }, &Updater::feedArrived);
    setState({.phase = Phase::checking});
}

void Updater::fetch(const QUrl& address, SecureTransfer::Limits limits, SecureTransfer::Sink sink,
                    Arrival arrival)
{
    const QSslConfiguration tls = m_environment.tls.value_or(QSslConfiguration());
    m_transfer = std::make_unique<SecureTransfer>(tls, limits, std::move(sink));
    connect(m_transfer.get(), &SecureTransfer::finished, this, arrival);
    m_transfer->start(address);
}

std::optional<UpdateError> Updater::takeFeedBytes(const QByteArray& bytes)
{
    if (m_feed.size() + bytes.size() > feedlimits::bytes)
        return UpdateError::feedTooLarge;
    m_feed += bytes;
    return std::nullopt;
}

void Updater::feedArrived(std::optional<UpdateError> error)
{
    endTransfer();
    if (error)
        return fail(*error);
    const auto items = parseUpdateFeed(std::exchange(m_feed, {}));
    if (!items)
        return fail(items.error());
    const UpdateChoice choice =
        chooseUpdate(*items, *ReleaseVersion::parse(m_environment.programVersion),
                     ReleaseVersion::parse(m_environment.systemVersion));
    if (!choice.item)
        return setState({.phase = Phase::upToDate, .reason = choice.reason});
    if (const auto refusal = prepareItem(*choice.item))
        return fail(*refusal);
    m_item = *choice.item;
    setState({.phase = Phase::available,
              .update = {m_item.shortVersion, m_item.notes, m_item.lengthBytes}});
}

std::optional<UpdateError> Updater::prepareItem(const UpdateItem& item)
{
    if (!isSecureAddress(item.address))
        return UpdateError::addressNotSecure;
    if (item.signature.isEmpty())
        return UpdateError::signatureMissing;
    const auto signature = signatureFromText(item.signature);
    if (!signature)
        return UpdateError::signatureMalformed;
    if (item.lengthBytes > m_environment.maximumPackageBytes)
        return UpdateError::packageTooLarge;
    m_signature = *signature;
    return std::nullopt;
}

void Updater::download()
{
    if (m_state.phase != Phase::available)
        return;
    auto file = PrivateFile::create(m_environment.downloadFolder);
    if (!file)
        return fail(file.error());
    m_package = std::move(*file);
    m_receivedBytes = 0;
    fetch(
        m_item.address, {m_environment.silenceTimeout, std::nullopt},
        [this](const QByteArray& bytes) { return takePackageBytes(bytes); },
        &Updater::packageArrived);
    enter(Phase::downloading);
}

std::optional<UpdateError> Updater::takePackageBytes(const QByteArray& bytes)
{
    if (m_receivedBytes + bytes.size() > m_item.lengthBytes)
        return UpdateError::packageLongerThanAnnounced;
    if (const auto written = m_package->append(bytes); !written)
        return written.error();
    m_receivedBytes += bytes.size();
    showProgress();
    return std::nullopt;
}

void Updater::showProgress()
{
    const auto percent = [this](double progress) { return static_cast<int>(progress * 100); };
    UpdateState state = m_state;
    state.progress = static_cast<double>(m_receivedBytes) / static_cast<double>(m_item.lengthBytes);
    if (percent(state.progress) > percent(m_state.progress))
        setState(state);
}

void Updater::packageArrived(std::optional<UpdateError> error)
{
    endTransfer();
    if (error)
        return fail(*error);
    if (m_receivedBytes < m_item.lengthBytes)
        return fail(UpdateError::packageShorterThanAnnounced);
    if (const auto closed = m_package->close(); !closed)
        return fail(closed.error());
    m_verification.setFuture(
        QtConcurrent::run(&verifyPackage, m_package->path(), m_signature, m_publicKey));
    enter(Phase::verifying);
}

void Updater::packageVerified()
{
    // Cancelled meanwhile.
    if (m_state.phase != Phase::verifying)
        return;
    if (const auto verified = m_verification.result(); !verified)
        return fail(verified.error());
    if (const auto renamed = m_package->rename(packageName(m_item.address)); !renamed)
        return fail(renamed.error());
    enter(Phase::ready);
}

void Updater::install()
{
    if (m_state.phase != Phase::ready)
        return;
    if (!m_environment.openInstaller || !m_environment.openInstaller(m_package->path()))
        return fail(UpdateError::installerFailed);
    // The installer reads it, also after the program ended.
    m_package->release();
    UpdateState state = m_state;
    state.isHandedOver = true;
    setState(state);
}

void Updater::cancel()
{
    if (isBusy())
        fail(UpdateError::cancelled);
}

void Updater::dismiss()
{
    if (isBusy())
        return;
    m_package.reset();
    setState({});
}

void Updater::fail(UpdateError error)
{
    endTransfer();
    m_package.reset();
    setState({.phase = Phase::failed, .reason = description(error), .error = error});
}

void Updater::enter(UpdateState::Phase phase)
{
    UpdateState state = m_state;
    state.phase = phase;
    setState(state);
}

void Updater::setState(const UpdateState& state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT
    stateChanged(state);
}

/// Not deleted at once: it may be the one that calls.
void Updater::endTransfer()
{
    if (!m_transfer)
        return;
    m_transfer->stop();
    m_transfer.release()->deleteLater();
}

} // namespace trovell
