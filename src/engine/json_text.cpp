#include "json_text.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QString>

namespace quarlin {

namespace {

QString quoted(const QString& text) {
    QString result = QStringLiteral("\"");
    for (const QChar character : text) {
        switch (character.unicode()) {
            case u'"':
                result += QStringLiteral("\\\"");
                break;
            case u'\\':
                result += QStringLiteral("\\\\");
                break;
            case u'/':
                result += QStringLiteral("\\/");
                break;
            case u'\b':
                result += QStringLiteral("\\b");
                break;
            case u'\f':
                result += QStringLiteral("\\f");
                break;
            case u'\n':
                result += QStringLiteral("\\n");
                break;
            case u'\r':
                result += QStringLiteral("\\r");
                break;
            case u'\t':
                result += QStringLiteral("\\t");
                break;
            default:
                if (character.unicode() < 0x20) {
                    result += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
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
                m_text += value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
                break;
            default:
                m_text += QStringLiteral("null");
        }
    }

private:
    void writeObject(const QJsonObject& object) {
        open(u'{');
        // QJsonObject keeps its keys in ascending order.
        for (auto member = object.begin(); member != object.end(); ++member) {
            nextLine(member == object.begin());
            m_text += quoted(member.key()) + QStringLiteral(" : ");
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
