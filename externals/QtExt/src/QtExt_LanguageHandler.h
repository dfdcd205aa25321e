#ifndef QtExt_LanguageHandlerH
#define QtExt_LanguageHandlerH

#include <memory>

#include <QLocale>
#include <QString>

class QTranslator;

namespace QtExt {

/*! Switches the user-interface language of the application.

	It installs two translators: the toolkit's own texts ("qt_<id>.qm", or "qtbase_<id>.qm" when
	that does not load, from the translation directory or else from the toolkit's installed
	translations) and the application's texts ("<prefix>_<id>.qm" of the translation
	directory). It also sets the default
	locale and stores the chosen language id under "LangID" in the settings store of the
	configured organisation and application.

	The application texts are written in English, so for "en" no translation files are loaded.
	A missing translation file is reported through the message handler and the program goes on
	with the English texts.
*/
class LanguageHandler {
public:
	LanguageHandler();
	/*! Removes the installed translators. */
	~LanguageHandler();

	LanguageHandler(const LanguageHandler &) = delete;
	LanguageHandler & operator=(const LanguageHandler &) = delete;

	/*! The process-wide language handler of the application. */
	static LanguageHandler & instance();

	/*! Configures the handler.
		\param organization Organisation name of the settings store.
		\param program Application name of the settings store.
		\param translationDir Directory holding the .qm files.
		\param filePrefix Prefix of the application's translation files, e.g. "OrvaneApp".
	*/
	void setup(const QString & organization, const QString & program,
			   const QString & translationDir, const QString & filePrefix);

	/*! The language id stored under "LangID", "en" when none is stored. */
	QString langId() const;
	/*! Stores the language id under "LangID". */
	void setLangId(const QString & id) const;

	/*! Replaces the installed translators by those of langId, sets the default locale and
		stores langId. An empty id means "en".
	*/
	void installTranslator(const QString & langId);

	/*! The locale used as default for a language id: English for "en", German for "de",
		otherwise the locale of that language; never with group separators.
	*/
	static QLocale localeForLanguage(const QString & langId);

	const QString & translationDir() const { return m_translationDir; }
	const QString & filePrefix() const { return m_filePrefix; }

private:
	/*! Removes and deletes the translators installed by this handler. */
	void removeTranslators();
	/*! Loads and installs "<baseName>.qm" of directory dir; null when it does not exist or
		cannot be loaded. The file is looked up exactly, without the toolkit's fallback to
		shorter names.
	*/
	static std::unique_ptr<QTranslator> loadTranslator(const QString & dir, const QString & baseName);

	QString							m_organization;
	QString							m_program;
	QString							m_translationDir;
	QString							m_filePrefix;
	std::unique_ptr<QTranslator>	m_qtTranslator;		///< toolkit texts, when loaded
	std::unique_ptr<QTranslator>	m_appTranslator;	///< application texts, when loaded
};

} // namespace QtExt

#endif // QtExt_LanguageHandlerH
