#include "properties/propertyeditors.h"

#include "properties/booleditor.h"
#include "properties/coloreditor.h"
#include "properties/fonteditor.h"
#include "properties/imageeditor.h"
#include "properties/listeditor.h"
#include "properties/mapeditor.h"
#include "properties/numbereditor.h"
#include "properties/optioneditor.h"
#include "properties/referenceeditor.h"
#include "properties/texteditor.h"

namespace NARV::DEV {

PropertyEditors::PropertyEditors()
{
    add<TextEditor>(FieldType::String);
    add<ListEditor>(FieldType::StringList);
    add<MapEditor>(FieldType::StringMap);
    add<NumberEditor>(FieldType::Integer);
    add<NumberEditor>(FieldType::Double);
    add<BoolEditor>(FieldType::Bool);
    add<OptionEditor>(FieldType::Option);
    add<ColorEditor>(FieldType::Color);
    add<FontEditor>(FieldType::Font);
    add<ImageEditor>(FieldType::Image);
    add<ReferenceEditor>(FieldType::Tag);
    add<ReferenceEditor>(FieldType::Trend);
}

} // namespace NARV::DEV
