// SPDX-License-Identifier: MIT

#include "services/update/UpdateError.h"

#include <QStringView>

#include <iterator>

namespace trovell {

namespace {

struct Text {
    UpdateError error;
    QStringView sentences;
};

constexpr Text texts[] = {
    {UpdateError::programVersionUnknown,
     u"This copy of Trovell does not know its own version, so it cannot tell what is newer."},
    {UpdateError::publicKeyMalformed,
     u"This copy of Trovell has no valid public key, so it cannot check the signature of updates."},
    {UpdateError::addressNotSecure,
     u"The address of the update is not a secure one, so nothing was fetched from it."},
    {UpdateError::serverUnreachable,
     u"The update server could not be reached. Check the network connection and try again."},
    {UpdateError::serverNotTrusted,
     u"The update server could not prove its identity, so the connection was refused."},
    {UpdateError::serverRefused, u"The update server did not provide the file. Try again later."},
    {UpdateError::redirectNotSecure,
     u"The update server pointed to an address that is not secure, so nothing was fetched from "
     u"there."},
    {UpdateError::tooManyRedirects,
     u"The update server pointed from one address to the next without end."},
    {UpdateError::connectionLost, u"The connection to the update server was lost. Try again."},
    {UpdateError::timedOut, u"The update server took too long to answer. Try again later."},
    {UpdateError::feedTooLarge,
     u"The list of updates is larger than any such list should be and was not read."},
    {UpdateError::feedNotUtf8, u"The list of updates is not UTF-8 text and was not read."},
    {UpdateError::feedDeclaresEntities,
     u"The list of updates contains declarations that are not allowed in it and was not read."},
    {UpdateError::feedTooComplex,
     u"The list of updates is more complex than any such list should be and was not read."},
    {UpdateError::feedMalformed, u"The list of updates could not be understood."},
    {UpdateError::feedRepeatsVersion,
     u"The list of updates names the same version twice and cannot be relied on."},
    {UpdateError::signatureMissing, u"The update is not signed and was not downloaded."},
    {UpdateError::signatureMalformed,
     u"The signature of the update could not be understood, so the update was not downloaded."},
    {UpdateError::signatureWrong,
     u"The signature of the update does not match. The download was deleted."},
    {UpdateError::packageTooLarge,
     u"The update is larger than any update should be and was not downloaded."},
    {UpdateError::packageLongerThanAnnounced,
     u"The update is longer than announced. The download was deleted."},
    {UpdateError::packageShorterThanAnnounced,
     u"The update is shorter than announced. The download was deleted."},
    {UpdateError::folderNotWritable,
     u"The folder for downloaded updates could not be created or written to."},
    {UpdateError::folderNotPrivate,
     u"The folder for downloaded updates is not private to you and was not used."},
    {UpdateError::diskFull, u"There is not enough free disk space to download the update."},
    {UpdateError::fileNotWritable, u"The update could not be saved to the disk."},
    {UpdateError::fileNotReadable, u"The downloaded update could not be read again from the disk."},
    {UpdateError::installerFailed,
     u"No program could be opened to install the update. The download was deleted."},
    {UpdateError::cancelled, u"The update was cancelled."},
};

constexpr bool isInOrderOfTheEnumeration()
{
    for (std::size_t index = 0; index < std::size(texts); ++index)
        if (texts[index].error != static_cast<UpdateError>(index))
            return false;
    return std::size(texts) == static_cast<std::size_t>(UpdateError::cancelled) + 1;
}
static_assert(isInOrderOfTheEnumeration());

} // namespace

QString description(UpdateError error)
{
    return texts[static_cast<std::size_t>(error)].sentences.toString();
}

} // namespace trovell
