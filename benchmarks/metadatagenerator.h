#pragma once

#include <QByteArray>

//! The metadata of a library of so many widgets with so many fields each, of every type, with
//! texts, groups, bounds and requirements as authors write them.
QByteArray generateMetaData(const QByteArray &id, int widgets, int fields);

//! A translation file with the texts of such a library first and others behind, rows in all.
//! The translations begin with language, so that files of several languages differ.
QByteArray generateTranslation(const QByteArray &language, int rows);
