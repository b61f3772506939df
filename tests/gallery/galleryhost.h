#pragma once

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetActionManagerImpl>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/WidgetPrivate>

#include <QGraphicsScene>
#include <QImage>

#include <memory>

//! Loads the gallery and places its widgets, with their defaults and as inside the test bench: a
//! widget that reads a field it does not have is logged.
class GalleryHost : private NARV::INTERNAL::WidgetActionManagerImpl
{
public:
    using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;

    GalleryHost();
    ~GalleryHost() override;

    const Library &library() const;
    //! Places the only widget of the scene and initialises it.
    NARV::WidgetPrivate *place(const Library::WidgetMetaInformation &description,
                               const QVariantMap &values = {});
    //! The same by id, in the latest version.
    NARV::WidgetPrivate *place(const char *widgetId, const QVariantMap &values = {});
    //! The placed widget at a size, in a margin of its own.
    QImage grab(const QSizeF &size);

    static constexpr int margin = 20;
    QVector<NARV::AlarmInfo> alarms;
    int alarmQueries = 0;
    bool isEditor = false;

private:
    QVariant getTagValue(const QString &) override { return {}; }
    QVariant getTrendValue(const QString &, const QDateTime &, const QDateTime &, unsigned int,
                           NARV::WidgetActionManager::TrendTimeFormat) override
    {
        return {};
    }
    QVector<NARV::AlarmInfo> getAlarms() override
    {
        ++alarmQueries;
        return alarms;
    }
    void resetAlarm(const QString &) override {}
    void resetAllAlarms() override {}
    void acknowAlarm(const QString &) override {}
    void acknowAllAlarms() override {}
    bool isInsideProjectEditor() const override { return isEditor; }
    bool isInsideDevProject() const override { return true; }

    NARV::INTERNAL::PluginLoader m_loader;
    std::unique_ptr<NARV::Widget> m_widget;
    QGraphicsScene m_scene;
};
