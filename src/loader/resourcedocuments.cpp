#include "loader/resourcedocuments_p.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QSaveFile>
#include <QXmlStreamWriter>

namespace NARV::INTERNAL {

using Library = WidgetLibraryPluginMetaInformation;
using TranslationStringType = Library::TranslationStringType;
using Utils = WidgetLibraryPluginUtils;

static const QString galleryPattern = QStringLiteral("gallery_page_%1.zpx");
static const QString projectGalleryPattern = QStringLiteral("project_gallery_page_%1.zpx");

namespace {

//! One file, and what is told when it cannot be opened or written.
struct Document
{
    QString fileName;
    const char *openError; //!< "%1" stands for a path
    const char *writeError;
    bool errorsTellFolder; //!< the path is that of the folder, not of the file
    std::function<int(QXmlStreamWriter &writer)> write;
};

//! Hands the words of a document to a file in blocks: the buffer that a file has of its own costs
//! as much for each word as making the word.
class BlockDevice final : public QIODevice
{
public:
    explicit BlockDevice(QFileDevice &file)
        : m_file(file)
    {
        m_block.reserve(blockSize);
        open(WriteOnly | Unbuffered);
    }

    //! False if the file did not take all of what was written here.
    bool flush();

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override;

private:
    static constexpr int blockSize = 1 << 16;

    QFileDevice &m_file;
    QByteArray m_block;
};

} // namespace

bool BlockDevice::flush()
{
    const qint64 size = m_block.size();
    const qint64 written = m_file.write(m_block);
    m_block.resize(0); // keeps what is reserved
    // The result of flush() is the only one that tells of a full disk.
    return written == size && m_file.flush();
}

qint64 BlockDevice::writeData(const char *data, qint64 size)
{
    if (m_block.size() + size > blockSize && !flush())
        return -1;
    m_block.append(data, int(size));
    return size;
}

static void addGallery(QVector<Document> &documents, const Library &library,
                       const QString &languageCode, Utils::GalleryType type)
{
    const bool isPage = type == Utils::GalleryType::Page;
    const QString pattern = isPage ? galleryPattern : projectGalleryPattern;
    QList<TranslationStringType> groups =
        isPage ? library.pageWidgetsGalleryGroups() : library.projectWidgetsGalleryGroups();
    if (isPage ? library.pageWidgetsDefaultGalleryGroupIsUsed()
               : library.projectWidgetsDefaultGalleryGroupIsUsed())
        groups.append(TranslationStringType());
    for (int i = 0; i < groups.size(); ++i) {
        const TranslationStringType group = groups.at(i);
        documents.append({pattern.arg(i), "Error opening file %1", "Error generating file %1",
                          false, [&library, languageCode, group, type](QXmlStreamWriter &writer) {
                              return Utils::studioGalleryFromMetaInformation(
                                  library, writer, languageCode, group, type);
                          }});
    }
}

static QVector<Document> documentsOf(const Library &library, const QString &languageCode)
{
    QVector<Document> documents{
        {QStringLiteral("studio_properties.xml"), "Error creating directory %1",
         "Error generating studio_properties of %1", true,
         [&library, languageCode](QXmlStreamWriter &writer) {
             writer.writeStartElement(QStringLiteral("defs"));
             const int code =
                 Utils::studioPropertiesFromMetaInformation(library, writer, languageCode);
             writer.writeEndElement();
             return code;
         }},
        {QStringLiteral("studio_defaults.zpx"), "Error creating file %1",
         "Error generating file %1", false, [&library, languageCode](QXmlStreamWriter &writer) {
             return Utils::studioDefaultsFromMetaInformation(library, writer, languageCode,
                                                             galleryPattern, projectGalleryPattern);
         }}};
    addGallery(documents, library, languageCode, Utils::GalleryType::Page);
    addGallery(documents, library, languageCode, Utils::GalleryType::Project);
    return documents;
}

bool writeXmlDocument(QFileDevice &file, const std::function<int(QXmlStreamWriter &)> &write)
{
    BlockDevice device(file);
    QXmlStreamWriter writer(&device);
    writer.setAutoFormatting(true);
    return write(writer) == 0 && !writer.hasError() && device.flush();
}

//! The text says what went wrong; null if nothing did.
static QString writeDocument(const Document &document, const QString &folder,
                             const QString &finalFolder)
{
    const QString name = QLatin1Char('/') + document.fileName;
    const QString told = document.errorsTellFolder ? finalFolder : finalFolder + name;
    // Also sees to it that the bytes are on the disk before the index tells of them.
    QSaveFile file(folder + name);
    if (!file.open(QIODevice::WriteOnly))
        return QString::fromLatin1(document.openError).arg(told);
    if (writeXmlDocument(file, document.write) && file.commit())
        return {};
    return QString::fromLatin1(document.writeError).arg(told);
}

QString writeResourceDocuments(const Library &library, const QString &languageCode,
                               const QString &folder, const QString &finalFolder)
{
    const QVector<Document> documents = documentsOf(library, languageCode);
    for (const Document &document : documents) {
        const QString error = writeDocument(document, folder, finalFolder);
        if (!error.isNull())
            return error;
    }
    return {};
}

} // namespace NARV::INTERNAL
