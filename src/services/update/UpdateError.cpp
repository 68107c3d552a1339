// SPDX-License-Identifier: MIT

#include "services/update/UpdateError.h"

#include <iterator>

namespace trovell {

namespace {

struct Text {
    UpdateError error;
    TextKey<> sentences;
};

constexpr Text texts[] = {
    {UpdateError::programVersionUnknown,
     u"This copy of Trovell does not know its own version, so it cannot tell what is newer."_key},
    {UpdateError::publicKeyMalformed,
     u"This copy of Trovell has no valid public key, so it cannot check the signature of updates."_key},
    {UpdateError::addressNotSecure,
     u"The address of the update is not a secure one, so nothing was fetched from it."_key},
    {UpdateError::serverUnreachable,
     u"The update server could not be reached. Check the network connection and try again."_key},
    {UpdateError::serverNotTrusted,
     u"The update server could not prove its identity, so the connection was refused."_key},
    {UpdateError::serverRefused,
     u"The update server did not provide the file. Try again later."_key},
    {UpdateError::redirectNotSecure,
     u"The update server pointed to an address that is not secure, so nothing was fetched from "
     u"there."_key},
    {UpdateError::tooManyRedirects,
     u"The update server pointed from one address to the next without end."_key},
    {UpdateError::connectionLost, u"The connection to the update server was lost. Try again."_key},
    {UpdateError::timedOut, u"The update server took too long to answer. Try again later."_key},
    {UpdateError::feedTooLarge,
     u"The list of updates is larger than any such list should be and was not read."_key},
    {UpdateError::feedNotUtf8, u"The list of updates is not UTF-8 text and was not read."_key},
    {UpdateError::feedDeclaresEntities,
     u"The list of updates contains declarations that are not allowed in it and was not read."_key},
    {UpdateError::feedTooComplex,
     u"The list of updates is more complex than any such list should be and was not read."_key},
    {UpdateError::feedMalformed, u"The list of updates could not be understood."_key},
    {UpdateError::feedRepeatsVersion,
     u"The list of updates names the same version twice and cannot be relied on."_key},
    {UpdateError::signatureMissing, u"The update is not signed and was not downloaded."_key},
    {UpdateError::signatureMalformed,
     u"The signature of the update could not be understood, so the update was not downloaded."_key},
    {UpdateError::signatureWrong,
     u"The signature of the update does not match. The download was deleted."_key},
    {UpdateError::packageTooLarge,
     u"The update is larger than any update should be and was not downloaded."_key},
    {UpdateError::packageLongerThanAnnounced,
     u"The update is longer than announced. The download was deleted."_key},
    {UpdateError::packageShorterThanAnnounced,
     u"The update is shorter than announced. The download was deleted."_key},
    {UpdateError::folderNotWritable,
     u"The folder for downloaded updates could not be created or written to."_key},
    {UpdateError::folderNotPrivate,
     u"The folder for downloaded updates is not private to you and was not used."_key},
    {UpdateError::diskFull, u"There is not enough free disk space to download the update."_key},
    {UpdateError::fileNotWritable, u"The update could not be saved to the disk."_key},
    {UpdateError::fileNotReadable,
     u"The downloaded update could not be read again from the disk."_key},
    {UpdateError::installerFailed,
     u"No program could be opened to install the update. The download was deleted."_key},
    {UpdateError::cancelled, u"The update was cancelled."_key},
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

Message description(UpdateError error)
{
    return texts[static_cast<std::size_t>(error)].sentences;
}

} // namespace trovell
