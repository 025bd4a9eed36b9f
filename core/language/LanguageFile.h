#pragma once

#include "hmicore_export.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>

namespace Hmi::Core {

class NodeText;

/**
 * The catalog and the texts of one language, read from an XML (".glx") or binary (".glx.dat")
 * language file. A file opened catalog only has the catalog and no texts. Once loaded, a file does
 * not change and may be read from any thread.
 *
 * The two forms share the data and the accessors here; the destructor is pure so that only they
 * can be instantiated.
 *
 * \code
 * const QSharedPointer<LanguageFile> file = XmlLanguageFile::load(path, false);
 * if (file && file->hasNode(QStringLiteral("STR_MENU_BACK"))) {
 *     label = file->getNode(QStringLiteral("STR_MENU_BACK"))->getText();
 * }
 * \endcode
 */
class HMICORE_EXPORT LanguageFile
{
public:
    using NodeTable = QHash<QString, QSharedPointer<const NodeText>>;

    virtual ~LanguageFile() = 0;
    Q_DISABLE_COPY(LanguageFile)

    /// False exactly when the file was opened catalog only.
    virtual bool getIsFullyLoaded() const;
    /// The language identifier, e.g. "en_US".
    virtual QString getLanguage() const;
    /// The name to show in a language list, e.g. "American English".
    virtual QString getDisplayName() const;
    /// The text of the full key aName ("STR_MENU_BACK"), or null.
    virtual QSharedPointer<const NodeText> getNode(const QString& aName) const;
    virtual bool getRightToLeft() const;
    virtual float getVersion() const;
    virtual bool hasNode(const QString& aName) const;

    const QString& getPath() const { return mPath; }
    const QString& getCodePage() const { return mContent.codePage; }
    /**
     * The fourth string of the binary form's catalog. It has no defined meaning; it is kept so
     * that a file can be written back unchanged. Always null for the XML form.
     */
    const QString& getCatalogExtra() const { return mContent.catalogExtra; }
    /// Every text, keyed by its full key; empty for a file opened catalog only.
    const NodeTable& getNodes() const { return mContent.nodes; }

protected:
    LanguageFile(const QString& aPath, bool aCatalogOnly);

    /// What the loaders fill in.
    struct Content
    {
        QString codePage;
        QString language;
        QString displayName;
        QString catalogExtra;
        bool rightToLeft = false;
        float version = 1.0f;
        NodeTable nodes;
    };

    bool isCatalogOnly() const { return mCatalogOnly; }

    Content mContent;

private:
    const QString mPath;
    const bool mCatalogOnly;
};

} // namespace Hmi::Core
