#pragma once

#include <QString>

namespace NARV::INTERNAL {

//! Something is there: a file, a folder, or a link, whether or not it leads anywhere.
bool isOccupied(const QString &path);

//! A new folder inside another one, in which things become complete before they move to their
//! place, and to which things move before they are taken apart. What a crash leaves of it is a
//! folder without an entry in the index, which the next run removes.
class ResourceWorkspace
{
public:
    //! Where no folder can be made the workspace is invalid.
    explicit ResourceWorkspace(const QString &folder);
    ~ResourceWorkspace();
    ResourceWorkspace(const ResourceWorkspace &) = delete;
    ResourceWorkspace &operator=(const ResourceWorkspace &) = delete;

    bool isValid() const { return !m_path.isEmpty(); }
    //! The path of something inside.
    QString path(const QString &name) const;
    //! Moves what has that name inside to target, in one step. A file or link there is replaced.
    bool moveOut(const QString &name, const QString &target) const;
    //! Removes a folder with all that is in it, a file or a link, but not what the link leads to.
    //! As far as possible it is gone from its place in one step.
    bool discard(const QString &path);

private:
    QString m_path;
    int m_discarded = 0;
};

} // namespace NARV::INTERNAL
