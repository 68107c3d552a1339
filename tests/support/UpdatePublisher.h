// The publisher's side of updates: keys, signatures and feeds. Main thread of a test.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>

namespace trovell::test {

/// An item of a feed as it is to be written, right or wrong; what is empty is left out.
struct PublishedItem {
    QString version = u"2.0"_qs;
    QString address = u"https://updates.example/trovell-2.0.deb"_qs;
    QString length = u"4096"_qs;
    QString signature = QString(86, u'A') + u"=="_qs;
    QString shortVersion = {};
    QString notes = {};
    QString minimumSystemVersion = {};
    /// Further XML.
    QString extra = {};
};

[[nodiscard]] QByteArray feedOf(const QList<PublishedItem>& items);

class UpdatePublisher {
public:
    /// With a new pair of keys.
    UpdatePublisher();

    /// In Base64.
    [[nodiscard]] QString publicKey() const;
    [[nodiscard]] QString signature(const QByteArray& package) const;

private:
    // As libsodium makes them.
    std::array<unsigned char, 32> m_publicKey{};
    std::array<unsigned char, 64> m_secretKey{};
};

} // namespace trovell::test
