#pragma once

#include "frame/SingletonCppQml.h"
#include "hmicore_export.h"

#include <QObject>
#include <QSharedPointer>
#include <QStringList>
#include <QVariantList>

#include <memory>
#include <mutex>
#include <vector>

namespace Hmi::Core {

class LanguageFile;
class LanguageFileLazy;
class NodeText;

/**
 * Knows the languages found in the languages directory and holds the current one in full. At
 * start-up only the catalogs are read; a language's texts are loaded when it becomes current,
 * and the previous language's texts are let go.
 *
 * \code
 * // QML
 * Text { text: HandleTextResource { name: "STR_MENU_TITLE" }.text
 *        LayoutMirroring.enabled: LanguageManager.rightToLeft }
 * ComboBox { model: LanguageManager.languages; textRole: "displayName"
 *            onActivated: LanguageManager.currentLanguage = model[index].identifier }
 * \endcode
 *
 * Lookups may come from any thread.
 */
class HMICORE_EXPORT LanguageManager final : public QObject, public SingletonCppQml<LanguageManager>
{
    Q_OBJECT
    Q_PROPERTY(QVariantList languages READ getLanguages NOTIFY languagesChanged)
    Q_PROPERTY(QString currentLanguage READ getCurrentLanguage WRITE setCurrentLanguage NOTIFY currentLanguageChanged)
    Q_PROPERTY(QString currentDisplayName READ getCurrentDisplayName NOTIFY currentLanguageChanged)
    Q_PROPERTY(bool rightToLeft READ getRightToLeft NOTIFY currentLanguageChanged)

public:
    LanguageManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
    ~LanguageManager() override;
    Q_DISABLE_COPY(LanguageManager)

    /**
     * Scans aPath for ".glx" and ".glx.dat" files and reads their catalogs. Where both forms of
     * one language exist, the binary one is used. The current language becomes the one that
     * matches the system locale, else the first by identifier, unless one is already current.
     */
    void setLanguagesPath(const QString& aPath);

    /// One map per language: "identifier", "displayName", "rightToLeft", "path".
    QVariantList getLanguages() const;
    QStringList getLanguageIdentifiers() const;
    QString getCurrentLanguage() const;
    QString getCurrentDisplayName() const;
    bool getRightToLeft() const;

    /// Loads the texts of aLanguage and makes it current; false, with a warning, if it is unknown
    /// or its file cannot be loaded, and nothing changes then.
    Q_INVOKABLE bool setCurrentLanguage(const QString& aLanguage);

    /// The text node of aKey ("STR_..." ) in the current language, or null.
    QSharedPointer<const NodeText> getNode(const QString& aKey) const;
    /// The current language's file, held by the caller as long as it needs it.
    QSharedPointer<LanguageFile> getCurrentFile() const;

signals:
    void languagesChanged();
    void currentLanguageChanged();
    /// Emitted once per switch, before currentLanguageChanged(); text handles re-read on it.
    void languageChanged();

private:
    struct Language
    {
        QString identifier;
        QString displayName;
        bool rightToLeft = false;
        QString path;
        std::shared_ptr<LanguageFileLazy> file;
    };

    const Language* findLanguage(const QString& aIdentifier) const;

    mutable std::mutex mMutex;
    std::vector<Language> mLanguages;
    QSharedPointer<LanguageFile> mCurrentFile;
    QString mCurrentLanguage;
};

} // namespace Hmi::Core
