#pragma once

#include "properties/valuekind.h"

#include <QItemEditorFactory>

namespace NARV::DEV {

//! One editor for each type of field; the keys of this factory are field types.
class PropertyEditors : public QItemEditorFactory
{
public:
    PropertyEditors();

private:
    template<class Editor>
    void add(FieldType::Value type)
    {
        registerEditor(type, new QStandardItemEditorCreator<Editor>);
    }
};

} // namespace NARV::DEV
