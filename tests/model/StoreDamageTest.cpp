// SPDX-License-Identifier: MIT
//
// A damaged file is refused, or it opens with exactly what was stored. Nothing in between.
#include "model/StoreFiles.h"
#include "model/WorkspaceStore.h"

#include "lab/Files.h"
#include "support/StoreContents.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

class StoreDamageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { qInfo("%d refused, %d opened", m_refusedCount, m_openedCount); }
    void survivesTruncation();
    void survivesFlippedBits();
    void survivesLostAndMisplacedPages();

private:
    static constexpr qsizetype pageSize = 4096;

    void write(const QByteArray& content) const;
    /// Stops the program, naming the place, unless the file is refused untouched, or opens as it
    /// was and can be edited.
    void check(const QByteArray& content, const char* what, qsizetype place);
    void openDamaged(const QByteArray& content);

    QTemporaryDir m_folder;
    QString m_path = StoreFiles(m_folder.path()).storePath();
    StoreContents m_contents;
    QByteArray m_bytes;
    int m_refusedCount = 0;
    int m_openedCount = 0;
};

void StoreDamageTest::write(const QByteArray& content) const
{
    // In place: file systems flush a file that was truncated and rewritten, which takes for ever.
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(content.size()));
    QCOMPARE(file.write(content), content.size());
}

void StoreDamageTest::initTestCase()
{
    StoreEditor editor(1);
    {
        const auto store = openStore(m_folder.path());
        // Removed rows leave free space, which damage may hit too.
        for (int step = 0; step < 30; ++step) {
            editor.edit(store->mainContext());
            QVERIFY(store->mainContext().save());
        }
        for (int index = 0; index < 5; ++index)
            store->mainContext().insert(makeWorkspace(u"Work"_s, index, 6));
    }
    m_contents = storedContents(m_folder.path());
    m_bytes = readFile(m_path);
    QVERIFY(m_contents.size() >= 3 && m_bytes.size() > 10 * pageSize);
}

void StoreDamageTest::check(const QByteArray& content, const char* what, qsizetype place)
{
    openDamaged(content);
    if (QTest::currentTestFailed())
        qFatal("at %s %lld", what, static_cast<long long>(place));
}

void StoreDamageTest::openDamaged(const QByteArray& content)
{
    write(content);
    auto store = WorkspaceStore::open(m_folder.path(), {.isDurable = false});
    if (!store) {
        m_refusedCount += 1;
        QCOMPARE(readFile(m_path), content);
        return;
    }
    m_openedCount += 1;
    StoreContext& context = (*store)->mainContext();
    QCOMPARE(contentsOf(context), m_contents);
    // What the damage hit may be written to now.
    StoreEditor(2).edit(context);
    const StoreContents edited = contentsOf(context);
    const bool isSaved = context.save().has_value();
    context.rollback();
    store->reset();
    auto again = WorkspaceStore::open(m_folder.path(), {.isDurable = false});
    if (again && isSaved)
        QCOMPARE(contentsOf((*again)->mainContext()), edited);
    QVERIFY(again || !isSaved);
}

void StoreDamageTest::survivesTruncation()
{
    QList<qsizetype> sizes;
    for (qsizetype size = 0; size < 130; ++size)
        sizes.append(size);
    for (qsizetype size = 512; size < m_bytes.size(); size += 512)
        sizes += {size - 1, size, size + 1};
    for (const qsizetype size : sizes)
        check(m_bytes.left(size), "size", size);
    for (const qsizetype size : {1, 512, 4096, 100'000})
        check(m_bytes + QByteArray(size, '\x5a'), "garbage of", size);
    QVERIFY(m_refusedCount > m_openedCount);
}

void StoreDamageTest::survivesFlippedBits()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 1400; ++round) {
        QByteArray content = m_bytes;
        // Every byte of the header, and many others.
        const qsizetype position = round < 216 ? round / 2 : random.bounded(content.size());
        // Half of the rounds flip one bit, the others change the byte at will.
        const int change = round % 2 == 0 ? 1 << random.bounded(8) : random.bounded(1, 256);
        content[position] = static_cast<char>(content[position] ^ change);
        check(content, "byte", position);
    }
    QVERIFY(m_refusedCount > 0 && m_openedCount > 0);
}

void StoreDamageTest::survivesLostAndMisplacedPages()
{
    for (qsizetype offset = 0; offset < m_bytes.size(); offset += pageSize) {
        const QByteArray neighbour =
            m_bytes.mid(offset == 0 ? pageSize : offset - pageSize, pageSize);
        for (const QByteArray& page : {QByteArray(pageSize, '\0'), neighbour}) {
            QByteArray content = m_bytes;
            check(content.replace(offset, pageSize, page), "offset", offset);
        }
    }
}

QTEST_GUILESS_MAIN(StoreDamageTest)
#include "StoreDamageTest.moc"
