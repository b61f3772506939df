#ifndef ZPPLUGIN_TESTS_RESOURCEFIXTURE_H
#define ZPPLUGIN_TESTS_RESOURCEFIXTURE_H

#include "guardedtest.h"

#include <NARV/INTERNAL/PluginLoader>

#include <QTemporaryDir>

#include <optional>

//! Everything below a folder by relative path: the content of files, "->" and the target of links,
//! null for folders.
using Tree = QMap<QString, QByteArray>;

Tree treeOf(const QString &folder);
void writeFile(const QString &path, const QByteArray &content);

//! Base of the tests of the editor's resources: three plugins and an output folder.
class ResourceFixture : public GuardedTest
{
    Q_OBJECT

protected:
    static constexpr int pluginCount = 3;
    static QString id(int number);

    QString plugins() const { return m_dir->filePath(u("plugins")); }
    QString out(const QString &name = {}) const;
    QString library(int number) const;
    void loadPlugins(NARV::INTERNAL::PluginLoader &loader);
    //! Runs a call with all plugins that are there; what became of the folders is in steps().
    bool generate(const QString &language);
    //! Such as "removed 1, generated 1, kept 2", by the numbers of the plugins.
    QString steps() const { return m_steps.join(u(", ")); }
    //! What the last calls logged as critical.
    QStringList errors();
    //! What a first call makes of an empty folder.
    Tree cleanTree(const QString &language);

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::optional<QTemporaryDir> m_dir;
    QStringList m_steps;
};

#endif
