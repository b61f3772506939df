#pragma once

#include <QCommandLineParser>

#include <optional>

namespace ZPPluginTool {

//! How the program ends.
enum ExitCode
{
    Fine = 0,
    HasFindings = 1,
    WrongUsage = 2 //!< also when something named on the command line is not there
};

//! What the help tells of a sub-command.
struct CommandHelp
{
    const char *name;
    const char *arguments; //!< such as "DIR", one word for each
    const char *summary;   //!< one line for the list of commands
    const char *text;      //!< what it does, what it prints, examples
};

//! The arguments of one sub-command.
class CommandLine
{
public:
    explicit CommandLine(const CommandHelp &help);

    void addOption(const QCommandLineOption &option) { m_parser.addOption(option); }
    //! Adds the option that says how long loading a plugin may take.
    void addTimeoutOption();
    //! Adds the option that names the language of texts; defaultCode is empty for none.
    void addLanguageOption(const QString &description, const QString &defaultCode = {});
    //! Reads the arguments behind the name of the command. Gives the code to end with when that is
    //! all there is to do: help was asked for, or the arguments are wrong, which has been reported.
    std::optional<int> parse(const QStringList &arguments);

    //! An argument that is not an option.
    QString argument(int index = 0) const { return m_parser.positionalArguments().at(index); }
    bool isSet(const QString &option) const { return m_parser.isSet(option); }
    QString value(const QString &option) const { return m_parser.value(option); }
    QStringList values(const QString &option) const { return m_parser.values(option); }
    //! The value of the timeout option.
    int seconds() const { return m_seconds; }
    //! The value of the language option; empty if it has none.
    QString language() const;
    //! Gives the code to end with if the first argument is no file or folder that is there, which
    //! has then been reported.
    std::optional<int> checkPath() const;
    //! Reports what is wrong with the arguments; gives the code to end with.
    int misused(const QString &reason) const;

private:
    bool readSeconds();
    std::optional<int> checkLanguage() const;
    QString helpText() const;

    const CommandHelp &m_help;
    QCommandLineParser m_parser;
    int m_seconds = 0;
    bool m_hasLanguage = false;
};

//! Reports on standard error why the program can not do what it was asked to.
int usageError(const QString &command, const QString &reason);

} // namespace ZPPluginTool
