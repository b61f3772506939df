#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QPair>
#include <QTimer>
#include <QVector>

namespace NARV::DEV {

class PluginSession;

//! Small pictures of the widgets of the open library, each made from an instance of the widget when
//! it is first asked for, one at a time so that nothing waits for them.
class WidgetIcons : public QObject
{
    Q_OBJECT

public:
    using Key = QPair<QString, QString>; //!< widget id and version

    explicit WidgetIcons(PluginSession &session, QObject *parent = nullptr);

    //! Of a widget whose picture is not made yet a general one.
    QIcon icon(const Key &key);
    //! Forgets all, as the library goes or the language is another.
    void clear();
    void setLanguage(const QString &code) { m_language = code; }

Q_SIGNALS:
    void made(const QPair<QString, QString> &key);

private:
    void makeNext();
    QIcon make(const Key &key) const;

    PluginSession &m_session;
    QString m_language;
    QHash<Key, QIcon> m_icons;
    QVector<Key> m_wanted;
    QTimer m_timer;
};

} // namespace NARV::DEV
