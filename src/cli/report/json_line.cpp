#include "cli/report/json_line.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// `text` in quotes and escaped. Qt only writes whole documents, so this is an array without its brackets.
QString jsonString(const QString& text) {
    const QByteArray bytes = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(bytes.mid(1, bytes.size() - 2));
}

QString array(const QStringList& texts) { return u'[' + texts.join(u", "_s) + u']'; }

}  // namespace

JsonLine& JsonLine::add(const QString& key, const QString& value) { return addText(key, jsonString(value)); }

JsonLine& JsonLine::add(const QString& key, const QStringList& values) {
    QStringList texts;
    for (const QString& value : values) {
        texts += jsonString(value);
    }
    return addText(key, array(texts));
}

JsonLine& JsonLine::add(const QString& key, std::int64_t value) {
    return addText(key, QString::number(value));
}

JsonLine& JsonLine::add(const QString& key, const JsonLine& object) { return addText(key, object.text()); }

JsonLine& JsonLine::add(const QString& key, const std::vector<JsonLine>& objects) {
    QStringList texts;
    for (const JsonLine& object : objects) {
        texts += object.text();
    }
    return addText(key, array(texts));
}

JsonLine& JsonLine::addText(const QString& key, const QString& text) {
    if (!m_members.isEmpty()) {
        m_members += u", "_s;
    }
    m_members += jsonString(key) + u": "_s + text;
    return *this;
}

}  // namespace quarlin
