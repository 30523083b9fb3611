#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace quarlin {

/// A JSON object on one line, its keys in the order in which they are added.
class JsonLine {
public:
    JsonLine& add(const QString& key, const QString& value);
    JsonLine& add(const QString& key, const QStringList& values);
    JsonLine& add(const QString& key, std::int64_t value);
    JsonLine& add(const QString& key, const JsonLine& object);
    JsonLine& add(const QString& key, const std::vector<JsonLine>& objects);

    bool isEmpty() const { return m_members.isEmpty(); }

    /// The object without a line feed.
    QString text() const { return u'{' + m_members + u'}'; }

private:
    JsonLine& addText(const QString& key, const QString& text);

    QString m_members;
};

}  // namespace quarlin
