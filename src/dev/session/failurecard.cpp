#include "session/failurecard.h"

#include "window/icons.h"

#include <QEvent>
#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

namespace NARV::DEV {

static const int cardWidth = 560;
static const int rowWidth = 440; //!< the buttons fit in a row
static const double titleScale = 1.3;

static QLabel *addLabel(QVBoxLayout *layout, const QString &name, const QString &accessibleName)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(label);
    return label;
}

static QPushButton *addButton(QBoxLayout *layout, const QString &name, const char *icon,
                              const QString &text)
{
    auto *button = new QPushButton(benchIcon(QLatin1String(icon)), text);
    button->setObjectName(name);
    button->setAutoDefault(true); // Enter presses it
    layout->addWidget(button);
    return button;
}

FailureCard::FailureCard(QWidget *parent)
    : QFrame(parent)
    , m_icon(new QLabel)
    , m_words(new QPlainTextEdit)
{
    setFrameShape(QFrame::StyledPanel);
    setMaximumWidth(cardWidth);
    setAccessibleName(tr("Why the plugin is not open"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_icon);
    showIcon();
    m_title = addLabel(layout, QStringLiteral("title"), tr("Failure"));
    QFont titleFont = font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * titleScale);
    titleFont.setBold(true);
    m_title->setFont(titleFont);
    m_path = addLabel(layout, QStringLiteral("path"), tr("Plugin"));
    m_path->setWordWrap(false);
    m_path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setAccessibleName(tr("What the loader said"));
    m_words->setReadOnly(true);
    m_words->setTabChangesFocus(true);
    m_words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    layout->addWidget(m_words);
    m_advice = addLabel(layout, QStringLiteral("advice"), tr("What to do next"));
    m_buttons = new QBoxLayout(QBoxLayout::TopToBottom);
    layout->addLayout(m_buttons);
    m_retry = addButton(m_buttons, QStringLiteral("retry"), "reload", tr("Retry"));
    m_anyway = addButton(m_buttons, QStringLiteral("loadAnyway"), "warning", tr("Load any&way"));
    m_another = addButton(m_buttons, QStringLiteral("openAnother"), "open", tr("Open another…"));
    m_back = addButton(layout, QStringLiteral("back"), "undo", {});
    m_back->setToolTip(QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText));
    connect(m_back, &QPushButton::clicked, this, &FailureCard::backRequested);
    connect(m_retry, &QPushButton::clicked, this,
            [this] { Q_EMIT retryRequested(m_failure.path); });
    connect(m_anyway, &QPushButton::clicked, this,
            [this] { Q_EMIT loadAnywayRequested(m_failure.path); });
    connect(m_another, &QPushButton::clicked, this, &FailureCard::openAnotherRequested);
}

void FailureCard::setFailure(const LoadFailure &failure, const QString &backText)
{
    m_failure = failure;
    m_back->setText(backText);
    m_title->setText(failure.title);
    m_path->setToolTip(failure.path);
    m_words->setPlainText(failure.words.join(QLatin1Char('\n')));
    m_words->setVisible(!failure.words.isEmpty());
    m_advice->setText((failure.advice + QLatin1Char(' ') + failure.outlook).trimmed());
    m_anyway->setVisible(failure.mayTry);
    elidePath();
}

void FailureCard::takeFocus()
{
    m_back->setFocus();
}

void FailureCard::showIcon()
{
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    m_icon->setPixmap(benchIcon(QStringLiteral("error")).pixmap(size));
}

void FailureCard::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showIcon();
}

void FailureCard::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    m_buttons->setDirection(width() < rowWidth ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    elidePath();
}

void FailureCard::elidePath()
{
    m_path->setText(m_path->fontMetrics().elidedText(m_failure.path, Qt::ElideMiddle,
                                                     contentsRect().width() -
                                                         layout()->contentsMargins().left() -
                                                         layout()->contentsMargins().right()));
}

} // namespace NARV::DEV
