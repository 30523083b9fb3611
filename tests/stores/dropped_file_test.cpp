#include "stores/dropped_file.h"

#include <QMimeData>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using quarlin::droppedFile;

namespace {

std::optional<QUrl> firstOf(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    return droppedFile(data);
}

const QUrl web(u"https://example.org/a.png"_s);
const QUrl one = QUrl::fromLocalFile(u"/a/one.png"_s);
const QUrl two = QUrl::fromLocalFile(u"/a/two.png"_s);

TEST(DroppedFile, IsTheFirstFile) {
    EXPECT_EQ(firstOf({one, two}), one);
    EXPECT_EQ(firstOf({two, one}), two);
}

TEST(DroppedFile, IsNothingThatIsNoFile) {
    EXPECT_EQ(firstOf({}), std::nullopt);
    EXPECT_EQ(firstOf({web}), std::nullopt);
}

TEST(DroppedFile, PassesOverWhatIsNoFile) { EXPECT_EQ(firstOf({web, one, two}), one); }

TEST(DroppedFile, IsNotFoundInText) {
    QMimeData data;
    data.setText(u"/a/one.png"_s);
    EXPECT_EQ(droppedFile(data), std::nullopt);
}

}  // namespace
