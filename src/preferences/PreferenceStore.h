// SPDX-License-Identifier: MIT
//
// The user's settings as typed values under dotted keys, in one JSON file that is replaced
// atomically at every change. A text is never taken for a boolean or a number. Main thread.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace trovell {

class PreferenceStore {
public:
    /// Reads `filePath` once. A file that is missing or cannot be read gives no values.
    explicit PreferenceStore(const QString& filePath);

    /// Undefined when nothing is stored under the key.
    [[nodiscard]] QJsonValue value(const QString& key) const { return m_values.value(key); }

    /// In force at once. The folder is created with mode 0700, the file with mode 0600. A file
    /// that could not be read is kept beside the new one, with ".damaged" at its end. A failed
    /// write keeps the value for this run only.
    void setValue(const QString& key, const QJsonValue& value);

private:
    void write();

    QString m_filePath;
    QJsonObject m_values;
    bool m_isDamaged = false;
};

} // namespace trovell
