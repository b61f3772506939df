#pragma once

#include <NARV/GraphicsObject>

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

    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override;

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
};
