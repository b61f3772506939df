#pragma once

#include <QStringView>
#include <QVector>

#include <zpplugin_export.h>

namespace NARV::INTERNAL {

//! The whole text is a widget or field id: ASCII letters, digits and underscores, at least one.
ZPPLUGIN_EXPORT bool isIdentifier(QStringView text);

//! One term of a requirements text: a field id, alone or compared with a constant.
struct RequirementsTerm
{
    QStringView fieldId;
    QStringView comparison; //!< "==", "<", ">", or empty for a field id alone
    QStringView constant;   //!< empty without a comparison
};

//! Reads a requirements text such as "visible && level > 3" in one pass.
//!
//! Terms are joined by "&&" or "||"; a constant is an integer with or without a sign, a decimal
//! number without a sign, "true" or "false"; one blank may stand on each side of a comparison and
//! of a joiner, and behind a field id that ends the text. On false the text is malformed and terms
//! is empty. The terms refer to the text.
ZPPLUGIN_EXPORT bool readRequirements(QStringView text, QVector<RequirementsTerm> &terms);

} // namespace NARV::INTERNAL
