// SPDX-License-Identifier: MIT

#include "preferences/PreferenceStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace trovell {

using namespace Qt::StringLiterals;

PreferenceStore::PreferenceStore(const QString& filePath) : m_filePath(filePath)
{
    QFile file(filePath);
    if (!file.exists())
        return;
    QJsonParseError error;
    // Opening a pipe would wait for its other end.
    const bool isReadable = QFileInfo(filePath).isFile() && file.open(QIODevice::ReadOnly);
    const QJsonDocument document =
        QJsonDocument::fromJson(isReadable ? file.readAll() : QByteArray(), &error);
    m_isDamaged = !isReadable || !document.isObject();
    m_values = document.object();
}

void PreferenceStore::setValue(const QString& key, const QJsonValue& value)
{
    m_values.insert(key, value);
    write();
}

void PreferenceStore::write()
{
    constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    const QDir folder = QFileInfo(m_filePath).dir();
    if (!folder.exists() && QDir().mkpath(folder.path()))
        QFile::setPermissions(folder.path(), ownerOnly | QFileDevice::ExeOwner);
    if (m_isDamaged && QFile::rename(m_filePath, m_filePath + u".damaged"_s))
        m_isDamaged = false;

    QSaveFile file(m_filePath);
    if (m_isDamaged || !file.open(QIODevice::WriteOnly) || !file.setPermissions(ownerOnly))
        return;
    file.write(QJsonDocument(m_values).toJson());
    file.commit();
}

} // namespace trovell
