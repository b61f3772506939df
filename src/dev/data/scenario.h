#pragma once

#include <QStringList>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

class TestData;

//! One of the unpleasant things that happen to a widget.
struct ZPPLUGIN_DEV_EXPORT Scenario
{
    const char *id;
    const char *untranslatedTitle;
    const char *untranslatedDescription;
    bool isForTags; //!< the caller may choose the tags
    //! Does it to these tags and says to how many tags or alarms.
    int (*action)(TestData &data, const QStringList &tags);

    QString title() const;
    QString description() const;
    //! Runs it with the data's player, which can undo it: to all tags if none is named.
    int run(TestData &data, const QStringList &tags = {}) const;
};

//! All of them, in the order of the menu.
ZPPLUGIN_DEV_EXPORT const QVector<Scenario> &scenarios();

} // namespace NARV::DEV
