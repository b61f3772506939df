#include "data/generatoreditor.h"

#include "data/wheelguard.h"
#include "window/icons.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QToolButton>

namespace NARV::DEV {

using Settings = GeneratorSettings;

template<GeneratorParameter parameter>
static bool uses(const Settings &settings, TagType)
{
    return generatorInfo(settings.kind).parameters.testFlag(parameter);
}

static bool isMoving(const Settings &settings, TagType)
{
    return settings.kind != GeneratorKind::None;
}

static bool hasElements(const Settings &settings, TagType type)
{
    return isArrayType(type) && settings.kind > GeneratorKind::Constant;
}

//! Limits are also those of the slider of a tag that is moved by hand.
static bool hasLimits(const Settings &settings, TagType type)
{
    const bool isNumber = type != TagType::Bool && type != TagType::String && !isArrayType(type);
    return uses<GeneratorParameter::Limits>(settings, type) ||
           (isNumber && !isMoving(settings, type));
}

GeneratorEditor::GeneratorEditor(QWidget *parent)
    : QWidget(parent)
    , m_form(new QFormLayout(this))
    , m_description(new QLabel)
{
    constexpr int mostSeeds = 1000000;
    m_form->setContentsMargins({});
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addKind();
    addFile();
    addWhole(QStringLiteral("period"), tr("&Period (ms)"), &Settings::period,
             Settings::shortestPeriod, Settings::longestPeriod, uses<GeneratorParameter::Period>);
    addNumber(QStringLiteral("minimum"), tr("Mi&nimum"), &Settings::minimum, hasLimits);
    addNumber(QStringLiteral("maximum"), tr("Ma&ximum"), &Settings::maximum, hasLimits);
    addNumber(QStringLiteral("step"), tr("&Step"), &Settings::step, uses<GeneratorParameter::Step>);
    addWhole(QStringLiteral("seed"), tr("See&d"), &Settings::seed, 0, mostSeeds,
             uses<GeneratorParameter::Seed>);
    addConstant();
    addTexts();
    addWhole(QStringLiteral("elements"), tr("E&lements"), &Settings::elements, 1,
             Settings::mostElements, hasElements);
    addQuality();
}

GeneratorEditor::~GeneratorEditor() = default;

void GeneratorEditor::show(TagType type, const GeneratorSettings &settings)
{
    if (m_isShown && type == m_shownType && settings == m_shown)
        return; // what is being typed stays
    m_settings = m_shown = settings;
    m_shownType = type;
    m_isShown = true;
    m_description->setText(QCoreApplication::translate("NARV::DEV::Generator",
                                                       generatorInfo(settings.kind).description));
    placeRows();
    for (const Row &row : qAsConst(m_rows)) {
        const QSignalBlocker blocker(row.editor);
        row.show();
    }
}

//! Rows that are hidden would leave their spacing, so only those in use are in the layout.
void GeneratorEditor::placeRows()
{
    QVector<QWidget *> used;
    for (const Row &row : qAsConst(m_rows)) {
        const bool isUsed = row.isUsed(m_settings, m_shownType);
        row.editor->setVisible(isUsed);
        if (row.label)
            row.label->setVisible(isUsed);
        if (isUsed)
            used.append(row.editor);
    }
    if (used == m_placed)
        return;
    m_placed = used;
    while (m_form->rowCount() > 0) {
        const QFormLayout::TakeRowResult taken = m_form->takeRow(0);
        delete taken.labelItem;
        delete taken.fieldItem;
    }
    for (const Row &row : qAsConst(m_rows)) {
        if (!used.contains(row.editor))
            continue;
        if (row.label)
            m_form->addRow(row.label, row.editor);
        else
            m_form->addRow(row.editor);
    }
}

void GeneratorEditor::edit(const std::function<void(GeneratorSettings &)> &change)
{
    GeneratorSettings settings = m_settings;
    change(settings);
    if (settings == m_settings)
        return;
    m_settings = settings;
    Q_EMIT edited(settings);
}

void GeneratorEditor::addRow(const QString &name, const QString &label, QWidget *editor,
                             IsUsed isUsed, const std::function<void()> &show)
{
    editor->setObjectName(QLatin1String("generator.") + name);
    editor->setAccessibleName(QString(label).remove(QLatin1Char('&')));
    auto *text = new QLabel(label, this);
    text->setBuddy(editor);
    editor->setParent(this);
    m_rows.append({text, editor, isUsed, show});
}

static bool always(const Settings &, TagType)
{
    return true;
}

void GeneratorEditor::addKind()
{
    auto *box = new QComboBox;
    new WheelGuard(box);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const GeneratorInfo &info : generators())
        box->addItem(generatorTitle(info.kind));
    addRow(QStringLiteral("kind"), tr("&Generator"), box, always,
           [this, box] { box->setCurrentIndex(int(m_settings.kind)); });
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        edit([index](Settings &settings) { settings.kind = GeneratorKind(index); });
    });
    m_description->setWordWrap(true);
    m_description->setParent(this);
    m_rows.append({nullptr, m_description, always, [] {}});
}

void GeneratorEditor::addNumber(const QString &name, const QString &label,
                                double GeneratorSettings::*member, IsUsed isUsed)
{
    constexpr double most = 1e12;
    auto *box = new QDoubleSpinBox;
    new WheelGuard(box);
    box->setDecimals(3);
    box->setRange(-most, most);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setKeyboardTracking(false);
    box->setMinimumWidth(60);
    addRow(name, label, box, isUsed, [this, box, member] { box->setValue(m_settings.*member); });
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, member](double value) {
                edit([&](Settings &settings) { settings.*member = value; });
            });
}

void GeneratorEditor::addWhole(const QString &name, const QString &label,
                               int GeneratorSettings::*member, int minimum, int maximum,
                               IsUsed isUsed)
{
    auto *box = new QSpinBox;
    new WheelGuard(box);
    box->setRange(minimum, maximum);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setKeyboardTracking(false);
    box->setMinimumWidth(60);
    addRow(name, label, box, isUsed, [this, box, member] { box->setValue(m_settings.*member); });
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, member](int value) {
        edit([&](Settings &settings) { settings.*member = value; });
    });
}

void GeneratorEditor::addConstant()
{
    auto *line = new QLineEdit;
    addRow(QStringLiteral("constant"), tr("Val&ue"), line, uses<GeneratorParameter::Value>,
           [this, line] {
               if (line->text() != m_settings.value)
                   line->setText(m_settings.value);
           });
    connect(line, &QLineEdit::textEdited, this, [this](const QString &text) {
        edit([&](Settings &settings) { settings.value = text; });
    });
}

void GeneratorEditor::addTexts()
{
    auto *texts = new QPlainTextEdit;
    texts->setPlaceholderText(tr("One text a line"));
    texts->setTabChangesFocus(true);
    texts->setFixedHeight(fontMetrics().lineSpacing() * 4 + 12);
    addRow(QStringLiteral("texts"), tr("&Texts"), texts, uses<GeneratorParameter::Texts>,
           [this, texts] {
               const QString joined = m_settings.texts.join(QLatin1Char('\n'));
               if (joined != texts->toPlainText())
                   texts->setPlainText(joined);
           });
    connect(texts, &QPlainTextEdit::textChanged, this, [this, texts] {
        const QString text = texts->toPlainText();
        edit([&](Settings &settings) {
            settings.texts = text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
        });
    });
}

void GeneratorEditor::addFile()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto *line = new QLineEdit;
    line->setObjectName(QStringLiteral("generator.filePath"));
    line->setAccessibleName(tr("CSV file"));
    line->setMinimumWidth(40);
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("generator.browse"));
    button->setIcon(benchIcon(QStringLiteral("open")));
    button->setAccessibleName(tr("Choose a CSV file"));
    button->setToolTip(tr("Choose a CSV file"));
    button->setFocusPolicy(Qt::StrongFocus);
    layout->addWidget(line, 1);
    layout->addWidget(button);
    row->setFocusProxy(line);
    addRow(QStringLiteral("file"), tr("&CSV file"), row, uses<GeneratorParameter::File>,
           [this, line] { line->setText(m_settings.file); });
    connect(line, &QLineEdit::editingFinished, this, [this, line] {
        edit([&](Settings &settings) { settings.file = line->text().trimmed(); });
    });
    connect(button, &QToolButton::clicked, this, &GeneratorEditor::browse);
}

void GeneratorEditor::browse()
{
    auto *dialog = new QFileDialog(this, tr("CSV file"), m_settings.file, tr("CSV files (*.csv)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &file) {
        edit([&](Settings &settings) { settings.file = file; });
    });
    dialog->open();
}

void GeneratorEditor::addQuality()
{
    auto *box = new QComboBox;
    new WheelGuard(box);
    box->addItems(qualityNames());
    addRow(QStringLiteral("quality"), tr("&Quality"), box, isMoving,
           [this, box] { box->setCurrentIndex(int(m_settings.quality)); });
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        edit([index](Settings &settings) { settings.quality = Quality(index); });
    });
}

} // namespace NARV::DEV
