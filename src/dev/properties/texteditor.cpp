#include "properties/texteditor.h"

namespace NARV::DEV {

TextEditor::TextEditor(QWidget *parent)
    : LinesEditor(Enter::Finishes, parent)
{
    setToolTip(tr("Shift+Enter begins a new line"));
}

} // namespace NARV::DEV
