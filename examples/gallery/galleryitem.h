#pragma once

#include <NARV/GraphicsObject>

#include <QBasicTimer>
#include <QColor>
#include <QFont>
#include <QMap>
#include <QStringList>

//! What all items of this library share: field values by type, a repaint on every change, a title.
class GalleryItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    explicit GalleryItem(const NARV::GraphicsObjectData &data);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) final;

protected:
    //! Draws the widget into area, which is never empty. The painter is antialiased; its state is
    //! restored afterwards.
    virtual void draw(QPainter &painter, const QRectF &area) = 0;

    void initEvent(NARV::InitEvent *event) override;
    void deinitEvent(NARV::DeinitEvent *event) override;
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void timerEvent(QTimerEvent *event) override;

    //! Not in the project editor, where the item belongs to the designer.
    bool isAtRunTime() const;
    //! The time from one beat() to the next in milliseconds; 0 for none, as here. Beats come at run
    //! time, between initialisation and its end, while the item is on a scene and visible.
    virtual int beatPeriod();
    //! Here: draws the item anew.
    virtual void beat();
    //! The beats since they started; 0 when there are none.
    int beats() const { return m_beats; }
    //! To be called when what beatPeriod() tells may have changed other than by a field.
    void updateBeat();

    bool flag(const char *fieldId);
    int integer(const char *fieldId);
    double number(const char *fieldId);
    QColor color(const char *fieldId);
    QFont font(const char *fieldId);
    QString text(const char *fieldId);
    QStringList texts(const char *fieldId);
    QMap<int, QString> textMap(const char *fieldId);
    //! The font that goes with a multi-language text field.
    QFont fontOf(const char *textFieldId);
    //! The flags for QPainter::drawText() of the fields "horizontalAlignment" and, in widgets that
    //! have it, "verticalAlignment".
    Qt::Alignment horizontalAlignment();
    Qt::Alignment verticalAlignment();

    //! Draws the field "title" at the top of area, unless it is empty, and returns the rest.
    QRectF drawTitle(QPainter &painter, const QRectF &area);
    //! Draws background and frame of the fields "showBackground", "backgroundColor", "showFrame",
    //! "frameColor" and "frameWidth", and returns what is inside.
    QRectF drawBox(QPainter &painter, const QRectF &area);

private:
    QVariant value(const char *fieldId) { return getFieldValue(QLatin1String(fieldId)); }

    bool m_isInitialised = false;
    QBasicTimer m_beat;
    int m_period = 0;
    int m_beats = 0;
};
