#include "window/messagebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace NARV::DEV {

//! Of more messages, the first are shown and the rest counted.
static const int shownMessages = 4;

MessageBar::MessageBar(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLabel)
    , m_button(new QToolButton)
{
    setObjectName(QStringLiteral("messageBar"));
    setAccessibleName(tr("Message"));
    setFrameShape(StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_button->setObjectName(QStringLiteral("messageAction"));
    m_button->setAccessibleName(tr("What is offered"));
    auto *close = new QToolButton;
    close->setText(tr("Dismiss"));
    close->setObjectName(QStringLiteral("messageDismiss"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 6, 6);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    row->addWidget(close);
    connect(close, &QToolButton::clicked, this, &MessageBar::dismiss);
    connect(m_button, &QToolButton::clicked, this, [this] {
        const auto action = m_action;
        dismiss();
        if (action)
            action();
    });
    hide();
}

void MessageBar::tell(const QString &text)
{
    m_messages.removeAll(text);
    m_messages += text;
    showAll();
}

void MessageBar::offer(const QString &text, const QString &buttonText,
                       const std::function<void()> &action)
{
    m_offer = text;
    m_action = action;
    m_button->setText(buttonText);
    showAll();
}

void MessageBar::dismissMessages()
{
    m_messages.clear();
    if (m_offer.isEmpty())
        dismiss();
    else
        showAll();
}

void MessageBar::showAll()
{
    QStringList shown = m_messages.mid(0, shownMessages);
    if (m_messages.size() > shownMessages)
        shown += tr("and %n more", nullptr, m_messages.size() - shownMessages);
    if (!m_offer.isEmpty())
        shown += m_offer;
    m_text->setText(shown.join(QLatin1Char('\n')));
    m_button->setVisible(!m_offer.isEmpty());
    setAccessibleDescription(m_text->text());
    show();
}

void MessageBar::dismiss()
{
    m_messages.clear();
    m_offer.clear();
    m_action = nullptr;
    hide();
}

} // namespace NARV::DEV
