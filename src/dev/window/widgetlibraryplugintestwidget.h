#pragma once

#include <QImage>
#include <QScopedPointer>
#include <QVariant>
#include <QWidget>

#include <zpplugin_dev_export.h>

class QSettings;

namespace NARV::DEV {

class WidgetLibraryPluginTestWidgetPrivate;

//! The test bench for widget libraries: opens one, places its widgets on a page, and gives them
//! tags, trends, alarms and touches.
//!
//! A QWidget for the main thread; a program may have it as its window or inside another one. All
//! that the user can do is also to be done from code. Call narvInit() first, so that there are
//! gestures.
class ZPPLUGIN_DEV_EXPORT WidgetLibraryPluginTestWidget : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetLibraryPluginTestWidget(QWidget *parent = nullptr);
    ~WidgetLibraryPluginTestWidget() override;

    //! Remembers the layout, recent files, preferences and unsaved work there; the settings have to
    //! outlive the widget. Without settings nothing is remembered.
    void setSettings(QSettings *settings, const QString &unsavedWorkFolder);
    //! Shows the records of the library's log in the console. Takes the process's log callback and
    //! message pattern until the widget is destroyed.
    void showLog();
    //! The program that tries plugins before they are loaded here; it calls runPluginProbe().
    void setProbeCommand(const QString &program, const QStringList &arguments);

    //! Opens a plugin's folder or library. What went wrong is shown; the outcome comes as
    //! pluginLoaded() or pluginFailed(), at once if there is no probe. What was open before stays
    //! if it failed.
    void openPlugin(const QString &path);
    bool isPluginLoaded() const;
    //! Loads the plugin anew; the page stays.
    void reloadPlugin();

    //! The ids of the library's widgets; empty while no plugin is loaded.
    QStringList widgetIds() const;
    //! Places a widget with its centre there, in scene units, and selects it; the latest version if
    //! that text is empty. Returns its name on the page; empty if the library has no such widget.
    QString placeWidget(const QString &widgetId, const QString &version, const QPointF &centre);
    //! Places one of each widget in its latest version, in rows; the page grows where needed.
    void placeAllWidgets();
    //! The names of all widgets on the page, the lowest first.
    QStringList widgetNames() const;
    //! The place of a widget on the page as if it were not rotated; null for an unknown one.
    QRectF widgetGeometry(const QString &widgetName) const;
    //! Rotation in degrees clockwise about the centre. False for an unknown widget or an empty
    //! size.
    bool setWidgetGeometry(const QString &widgetName, const QRectF &geometry, double rotation = 0);
    //! In scene units.
    QSizeF pageSize() const;
    void setPageSize(const QSizeF &size);
    //! The value that the property tree shows; invalid for an unknown widget or field.
    QVariant fieldValue(const QString &widgetName, const QString &fieldId) const;
    //! Sets a field as a person does in the property tree, with undo. False for an unknown widget
    //! or field, or a value that the field does not take.
    bool setFieldValue(const QString &widgetName, const QString &fieldId, const QVariant &value);
    //! Binds a tag or trend to a field; an empty name unbinds. False for an unknown widget, or a
    //! field that takes no tag.
    bool bindField(const QString &widgetName, const QString &fieldId, const QString &tagName);
    //! Writes a tag, as its generator does. False if there is no such tag or it does not take the
    //! value.
    bool setTagValue(const QString &tagName, const QVariant &value);

    //! Widgets run, instead of being edited.
    bool isRuntimeMode() const;
    void setRuntimeMode(bool isRuntime);
    //! The languages of the library's texts, its own first; one of them while no plugin is loaded.
    QStringList languages() const;
    //! Texts that the library does not have in it are in its own language.
    QString language() const;
    void setLanguage(const QString &languageCode);

    //! False with a reason that names the file and the place in it.
    bool openScene(const QString &path, QString *problem = nullptr);
    bool saveScene(const QString &path, QString *problem = nullptr);
    //! Whether the time of the test data runs; it does on its own in runtime mode.
    bool isTimeRunning() const;
    void setTimeRunning(bool isRunning);
    //! Begins the time of the test data anew; from then on it does not follow the real time.
    void setStartTime(const QDateTime &time);
    //! Moves the time of the test data on, running or not.
    void advanceTime(qint64 milliseconds);
    //! The page as a picture of its size times scale.
    QImage renderPage(double scale = 1) const;

Q_SIGNALS:
    void pluginLoaded();
    //! The reason has several lines.
    void pluginFailed(const QString &reason);
    //! Something that a person has to know, such as a field that no longer exists.
    void notice(const QString &text);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent *event) override;

private:
    Q_DECLARE_PRIVATE(WidgetLibraryPluginTestWidget)
    Q_DISABLE_COPY(WidgetLibraryPluginTestWidget)
    const QScopedPointer<WidgetLibraryPluginTestWidgetPrivate> d_ptr;
};

} // namespace NARV::DEV
