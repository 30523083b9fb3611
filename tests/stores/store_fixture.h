#pragma once

#include "scripted_chooser.h"
#include "texture_folder.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QTime>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

/// A store with a scripted chooser and a clock that always says 14:03:27.
template <typename Store>
class StoreFixture : public testing::Test {
protected:
    TextureFolder folder;
    ScriptedChooser chooser;
    std::unique_ptr<Store> owned = std::make_unique<Store>(chooser, [] { return QTime(14, 3, 27); });
    Store& store = *owned;

    static QString stamped(const QString& message) { return u"[14:03:27] "_s + message; }

    const QString& newest() const { return store.logLines().constFirst(); }

    static std::unique_ptr<QMimeData> dragged(const QList<QUrl>& urls) {
        auto data = std::make_unique<QMimeData>();
        data->setUrls(urls);
        return data;
    }

    /// Processes the calls posted to the event loop.
    static void runEventLoop() { QCoreApplication::sendPostedEvents(); }
};

}  // namespace quarlin::fixtures
