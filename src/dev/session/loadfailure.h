#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! Why a plugin could not be opened, in words for its author.
struct ZPPLUGIN_DEV_EXPORT LoadFailure
{
    enum class Kind
    {
        None,           //!< nothing has failed
        Missing,        //!< there is no such file or folder
        NoLibrary,      //!< a folder without a library for this machine
        NoPluginFolder, //!< a folder that is not named by a plugin's id
        NotCopied,      //!< the library can not be read, or there is no room for the copy
        NoUsableFile,   //!< the file is no library, or only a part of one
        OtherMachine,   //!< a library for another system or processor
        NoPlugin,       //!< a library, but no widget library
        MetaData,       //!< its description has a fault
        WrongId,        //!< the folder has another name than the plugin's id
        Symbol,         //!< the library needs a function that nobody has
        Exception,      //!< the plugin threw when it was made
        Crash,          //!< it ended the process that tried it
        Hang,           //!< it did not answer in time
        Other           //!< the words tell
    };

    //! A failure with the advice for its kind.
    static LoadFailure of(Kind kind, const QString &path, const QString &title,
                          const QStringList &words = {});
    //! The kind that the words of the loader tell; Other if they tell none.
    static Kind kindOf(const QStringList &words);

    Kind kind = Kind::None;
    QString path;        //!< as given
    QString title;       //!< one line
    QStringList words;   //!< what the loader, or the process that tried it, has said
    QString advice;      //!< what to do next
    QString outlook;     //!< what then happens by itself, while the file is watched; often empty
    bool mayTry = false; //!< it failed in the probe only: openAnyway() loads it in this process
};

} // namespace NARV::DEV

Q_DECLARE_METATYPE(NARV::DEV::LoadFailure)
