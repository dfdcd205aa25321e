#include "QtExt_LanguageHandler.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace QtExt {

LanguageHandler::LanguageHandler() = default;


LanguageHandler::~LanguageHandler() {
	removeTranslators();
}


LanguageHandler & LanguageHandler::instance() {
	static LanguageHandler handler;
	return handler;
}


void LanguageHandler::setup(const QString & organization, const QString & program,
							const QString & translationDir, const QString & filePrefix)
{
	m_organization = organization;
	m_program = program;
	m_translationDir = translationDir;
	m_filePrefix = filePrefix;
}


QString LanguageHandler::langId() const {
	QSettings store(m_organization, m_program);
	return store.value("LangID", QString("en")).toString();
}


void LanguageHandler::setLangId(const QString & id) const {
	QSettings store(m_organization, m_program);
	store.setValue("LangID", id);
}


void LanguageHandler::installTranslator(const QString & langId) {
	FUNCID(LanguageHandler::installTranslator);
	const QString id = langId.isEmpty() ? QString("en") : langId;

	removeTranslators();

	if (id != "en") {
		const QString qtFile = "qt_" + id;
		// "qt_<id>" loads only together with every module catalogue it names, of which the
		// program needs "qtbase_<id>"; the program's own copies come first, then the system's
		for (const QString & dir : { m_translationDir, QLibraryInfo::location(QLibraryInfo::TranslationsPath) })
			for (const QString & baseName : { qtFile, "qtbase_" + id })
				if (m_qtTranslator == nullptr)
					m_qtTranslator = loadTranslator(dir, baseName);
		if (m_qtTranslator == nullptr)
			ZEB::reportProgress(ZEB::MessageFormat("Could not load system translator file: '%1'.\n")
								.arg(qtFile.toStdString()).str(), FUNC_ID);

		m_appTranslator = loadTranslator(m_translationDir, m_filePrefix + "_" + id);
		if (m_appTranslator == nullptr)
			ZEB::reportProgress(ZEB::MessageFormat("Could not load application translator file: '%1_%2'.\n")
								.arg(m_filePrefix.toStdString()).arg(id.toStdString()).str(), FUNC_ID);
	}

	QLocale::setDefault(localeForLanguage(id));
	setLangId(id);
}


QLocale LanguageHandler::localeForLanguage(const QString & langId) {
	QLocale locale;
	if (langId == "en")
		locale = QLocale(QLocale::English);
	else if (langId == "de")
		locale = QLocale(QLocale::German);
	else
		locale = QLocale(langId);
	locale.setNumberOptions(QLocale::OmitGroupSeparator);
	return locale;
}


std::unique_ptr<QTranslator> LanguageHandler::loadTranslator(const QString & dir, const QString & baseName) {
	const QString path = QDir(dir).filePath(baseName + ".qm");
	std::unique_ptr<QTranslator> translator(new QTranslator);
	if (!QFileInfo(path).isFile() || !translator->load(path))
		return nullptr;
	QCoreApplication::installTranslator(translator.get());
	return translator;
}


void LanguageHandler::removeTranslators() {
	// after the application object is gone its translators are gone with it
	if (QCoreApplication::instance() == nullptr) {
		m_qtTranslator.reset();
		m_appTranslator.reset();
		return;
	}
	if (m_qtTranslator != nullptr) {
		QCoreApplication::removeTranslator(m_qtTranslator.get());
		m_qtTranslator.reset();
	}
	if (m_appTranslator != nullptr) {
		QCoreApplication::removeTranslator(m_appTranslator.get());
		m_appTranslator.reset();
	}
}

} // namespace QtExt
