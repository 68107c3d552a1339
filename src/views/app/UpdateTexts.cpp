// SPDX-License-Identifier: MIT

#include "views/app/UpdateTexts.h"

#include "views/words/Phrases.h"

namespace trovell {

namespace {

QString sizeText(qint64 bytes, const Localization& words)
{
    return words.locale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString receivedText(const UpdateState& state, const Localization& words)
{
    const qint64 total = state.update.sizeBytes;
    const auto received = static_cast<qint64>(state.progress * static_cast<double>(total));
    return words.text(phrases::receivedOfSize, sizeText(received, words), sizeText(total, words));
}

UpdateTexts readyTexts(const UpdateState& state, const Localization& words)
{
    if (state.isHandedOver)
        return {
            words.text(u"The update was handed to the installer"_key),
            words.text(
                u"Follow its steps. The new version is there the next time Trovell starts."_key),
            {},
            words.text(u"OK"_key)};
    return {
        words.text(phrases::updateReady, state.update.version),
        words.text(u"Its signature is genuine. Your system's installer takes it from here."_key),
        words.text(u"Later"_key), words.text(u"Install"_key)};
}

} // namespace

UpdateTexts updateTexts(const UpdateState& state, const Localization& words)
{
    switch (state.phase) {
    case UpdateState::Phase::idle:
        return {};
    case UpdateState::Phase::checking:
        return {words.text(u"Checking for updates…"_key), {}, words.text(u"Cancel"_key), {}};
    case UpdateState::Phase::upToDate:
        return {words.text(u"No update available"_key),
                words.text(state.reason),
                {},
                words.text(u"OK"_key)};
    case UpdateState::Phase::available:
        return {words.text(phrases::updateAvailable, state.update.version),
                words.text(phrases::updateSize, sizeText(state.update.sizeBytes, words)),
                words.text(u"Later"_key), words.text(u"Download"_key)};
    case UpdateState::Phase::downloading:
        return {words.text(phrases::downloadingUpdate, state.update.version),
                receivedText(state, words),
                words.text(u"Cancel"_key),
                {}};
    case UpdateState::Phase::verifying:
        return {words.text(u"Checking the signature…"_key), {}, words.text(u"Cancel"_key), {}};
    case UpdateState::Phase::ready:
        return readyTexts(state, words);
    case UpdateState::Phase::failed:
        return {words.text(u"The update did not succeed"_key), words.text(state.reason),
                words.text(u"Close"_key), words.text(u"Try Again"_key)};
    }
    Q_UNREACHABLE();
}

} // namespace trovell
