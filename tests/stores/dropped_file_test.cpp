#include "dropped_file.h"

#include <QMimeData>

#include <gtest/gtest.h>

using quarlin::droppedFile;

namespace {

std::optional<QUrl> firstOf(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    return droppedFile(data);
}

const QUrl web(QStringLiteral("https://example.org/a.png"));
const QUrl one = QUrl::fromLocalFile(QStringLiteral("/a/one.png"));
const QUrl two = QUrl::fromLocalFile(QStringLiteral("/a/two.png"));

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
    data.setText(QStringLiteral("/a/one.png"));
    EXPECT_EQ(droppedFile(data), std::nullopt);
}

}  // namespace
