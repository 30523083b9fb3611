#include "imaging/decode/formats/heif/item_places.h"

#include "imaging/decode/formats/heif/box.h"

#include <algorithm>

namespace quarlin {

namespace {

/// Takes big-endian numbers off the front of a run of bytes. A number that is missing is 0, and then
/// `isIncomplete()`.
class Numbers {
public:
    explicit Numbers(QByteArrayView bytes) : m_rest(bytes) {}

    std::uint64_t take(int size) {
        std::uint64_t number = 0;
        if (m_rest.size() < size) {
            m_isIncomplete = true;
            m_rest = {};
            return 0;
        }
        for (const char byte : m_rest.first(size)) {
            number = number << 8U | static_cast<std::uint8_t>(byte);
        }
        m_rest = m_rest.sliced(size);
        return number;
    }
    QByteArrayView takeBytes(qsizetype size) {
        m_isIncomplete = m_isIncomplete || m_rest.size() < size;
        const QByteArrayView bytes = m_rest.first(std::min(size, m_rest.size()));
        m_rest = m_rest.sliced(bytes.size());
        return bytes;
    }
    bool isIncomplete() const { return m_isIncomplete; }

private:
    QByteArrayView m_rest;
    bool m_isIncomplete = false;
};

QByteArrayView contentOf(const QByteArray& file, const Box& box) {
    return QByteArrayView(file).sliced(box.content.begin, box.content.size());
}

/// The first box of a type inside the "meta" box.
std::optional<Box> boxOfMeta(const QByteArray& file, std::string_view type) {
    std::optional<Box> found;
    ByteRange rest{0, file.size()};
    while (const std::optional<Box> box = boxAt(file, rest)) {
        const std::optional<ByteRange> boxes = box->type == "meta" ? boxesOfMeta(*box) : std::nullopt;
        if (boxes) {
            visitBoxes(file, *boxes, [&](const Box& each) {
                if (each.type == type) {
                    found = each;
                }
                return !found;
            });
            return found;
        }
        rest.begin = box->content.end;
    }
    return std::nullopt;
}

/// Reads the types of the items ("iinf", which has one "infe" for each).
bool readTypes(const QByteArray& file, std::map<std::uint32_t, HeifItem>& items) {
    const std::optional<Box> list = boxOfMeta(file, "iinf");
    if (!list) {
        return false;
    }
    Numbers head(contentOf(file, *list));
    const std::uint64_t version = head.take(4) >> 24U;
    const qsizetype countSize = version == 0 ? 2 : 4;
    head.take(static_cast<int>(countSize));
    const ByteRange entries{list->content.begin + 4 + countSize, list->content.end};
    return !head.isIncomplete() && visitBoxes(file, entries, [&](const Box& entry) {
        constexpr std::uint64_t firstWithType = 2;
        Numbers numbers(contentOf(file, entry));
        const std::uint64_t entryVersion = numbers.take(4) >> 24U;
        if (entry.type != "infe" || entryVersion < firstWithType) {
            return true;
        }
        const auto number = static_cast<std::uint32_t>(numbers.take(entryVersion == firstWithType ? 2 : 4));
        numbers.take(2);
        items[number].type = numbers.takeBytes(4).toByteArray();
        return !numbers.isIncomplete();
    });
}

/// Reads where the data of the items are ("iloc").
bool readPlaces(const QByteArray& file, std::map<std::uint32_t, HeifItem>& items) {
    const std::optional<Box> list = boxOfMeta(file, "iloc");
    const std::optional<Box> dataOfMeta = boxOfMeta(file, "idat");
    if (!list) {
        return false;
    }
    Numbers numbers(contentOf(file, *list));
    const std::uint64_t version = numbers.take(4) >> 24U;
    const std::uint64_t sizes = numbers.take(2);
    const auto sizeAt = [&](unsigned shift) { return static_cast<int>(sizes >> shift & 15U); };
    const std::uint64_t count = numbers.take(version < 2 ? 2 : 4);
    for (std::uint64_t index = 0; index < count && !numbers.isIncomplete(); ++index) {
        const auto number = static_cast<std::uint32_t>(numbers.take(version < 2 ? 2 : 4));
        const std::uint64_t method = version == 0 ? 0 : numbers.take(2) & 15U;
        numbers.take(2);
        const std::uint64_t base = numbers.take(sizeAt(4));
        const std::uint64_t parts = numbers.take(2);
        constexpr std::uint64_t inMeta = 1;
        const QByteArrayView all =
            method == inMeta && dataOfMeta ? contentOf(file, *dataOfMeta) : QByteArrayView(file);
        std::optional<QByteArray> data = QByteArray();
        for (std::uint64_t part = 0; part < parts && !numbers.isIncomplete(); ++part) {
            numbers.take(version == 0 ? 0 : sizeAt(0));
            const std::uint64_t begin = base + numbers.take(sizeAt(12));
            const std::uint64_t size = numbers.take(sizeAt(8));
            const auto available = static_cast<std::uint64_t>(all.size());
            if (begin > available || size > available - begin) {
                data.reset();
            } else if (data) {
                // A size of 0 means everything.
                *data += all.sliced(static_cast<qsizetype>(begin),
                                    static_cast<qsizetype>(size == 0 ? available - begin : size));
            }
        }
        items[number].data = data;
    }
    return !numbers.isIncomplete();
}

}  // namespace

std::optional<std::map<std::uint32_t, HeifItem>> heifItems(const QByteArray& file) {
    std::map<std::uint32_t, HeifItem> items;
    return readTypes(file, items) && readPlaces(file, items) ? std::optional(items) : std::nullopt;
}

int hevcLengthSize(const QByteArray& file) {
    constexpr int usual = 4;
    constexpr qsizetype place = 21;
    int size = usual;
    const std::optional<Box> properties = boxOfMeta(file, "iprp");
    if (properties) {
        visitBoxes(file, properties->content, [&](const Box& list) {
            return list.type != "ipco" || visitBoxes(file, list.content, [&](const Box& property) {
                       if (property.type == "hvcC" && property.content.size() > place) {
                           size = (file[property.content.begin + place] & 3) + 1;
                       }
                       return true;
                   });
        });
    }
    return size;
}

}  // namespace quarlin
