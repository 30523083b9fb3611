#include "engine/documents/json_text.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QString>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString& text) {
    QString result = u"\""_s;
    for (const QChar character : text) {
        switch (character.unicode()) {
            case u'"':
                result += u"\\\""_s;
                break;
            case u'\\':
                result += u"\\\\"_s;
                break;
            case u'/':
                result += u"\\/"_s;
                break;
            case u'\b':
                result += u"\\b"_s;
                break;
            case u'\f':
                result += u"\\f"_s;
                break;
            case u'\n':
                result += u"\\n"_s;
                break;
            case u'\r':
                result += u"\\r"_s;
                break;
            case u'\t':
                result += u"\\t"_s;
                break;
            default:
                if (character.unicode() < 0x20) {
                    result += u"\\u%1"_s.arg(character.unicode(), 4, 16, QLatin1Char('0'));
                } else {
                    result += character;
                }
        }
    }
    return result + u'"';
}

class Writer {
public:
    QString take() { return std::move(m_text); }

    void write(const QJsonValue& value) {
        switch (value.type()) {
            case QJsonValue::Object:
                writeObject(value.toObject());
                break;
            case QJsonValue::Array:
                writeArray(value.toArray());
                break;
            case QJsonValue::String:
                m_text += quoted(value.toString());
                break;
            case QJsonValue::Double:
                // The shortest text that reads back as the same number: 1.0 is written as 1.
                m_text += QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
                break;
            case QJsonValue::Bool:
                m_text += value.toBool() ? u"true"_s : u"false"_s;
                break;
            default:
                m_text += u"null"_s;
        }
    }

private:
    void writeObject(const QJsonObject& object) {
        open(u'{');
        // QJsonObject keeps its keys in ascending order.
        for (auto member = object.begin(); member != object.end(); ++member) {
            nextLine(member == object.begin());
            m_text += quoted(member.key()) + u" : "_s;
            write(member.value());
        }
        close(u'}');
    }

    void writeArray(const QJsonArray& array) {
        open(u'[');
        for (auto element = array.begin(); element != array.end(); ++element) {
            nextLine(element == array.begin());
            write(*element);
        }
        close(u']');
    }

    void open(char16_t bracket) {
        m_text += bracket;
        ++m_depth;
    }

    void nextLine(bool first) {
        if (!first) {
            m_text += u',';
        }
        indent();
    }

    void close(char16_t bracket) {
        --m_depth;
        indent();
        m_text += bracket;
    }

    void indent() { m_text += u'\n' + QString(qsizetype{2} * m_depth, u' '); }

    QString m_text;
    int m_depth = 0;
};

}  // namespace

QByteArray jsonText(const QJsonValue& value) {
    Writer writer;
    writer.write(value);
    return writer.take().toUtf8();
}

}  // namespace quarlin
