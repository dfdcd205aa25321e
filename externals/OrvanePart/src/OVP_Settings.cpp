#include "OVP_Settings.h"

#include <memory>

#include <QSettings>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_FileReaderRegistry.h"

namespace OVP {

Settings * Settings::m_self = nullptr;


Settings::Settings(const QString & organization, const QString & appName, const QString & settingsFile) :
	QtExt::Settings(organization, appName, settingsFile)
{
	FUNCID(Settings::Settings);
	if (m_self != nullptr)
		throw ZEB::Exception("You must not create multiple instances of classes that derive from OVP::Settings!", FUNC_ID);
	// the base constructor could only apply its own defaults
	Settings::setDefaults();
	m_self = this;
}


Settings::~Settings() {
	if (m_self == this)
		m_self = nullptr;
}


Settings & Settings::instance() {
	FUNCID(Settings::instance);
	if (m_self == nullptr)
		throw ZEB::Exception("You must create an instance of OVP::Settings before accessing OVP::Settings::instance()!", FUNC_ID);
	return *m_self;
}


int Settings::germanFormatForLocale(const QLocale & locale) {
	return locale.decimalPoint() == QChar(',') ? 1 : 0;
}


void Settings::decideExportGermanFormat(const QLocale & systemLocale) {
	if (m_exportGermanFormatEnabled == -1)
		m_exportGermanFormatEnabled = germanFormatForLocale(systemLocale);
}


void Settings::setDefaults() {
	QtExt::Settings::setDefaults();
	m_maxRecentProjects = 10;

	m_userColoring = false;
	m_decimalPlaces = 6;
	m_fileNameFilter = QStringList{ "*.out", "*.s6o", "*.s6b", "*.cli", "*.ccd" };
	// then the files the data file readers take
	for (const std::string & pattern : FileReaderRegistry::instance().patterns())
		if (!m_fileNameFilter.contains(QString::fromStdString(pattern)))
			m_fileNameFilter << QString::fromStdString(pattern);
	m_excludedDirNames = QStringList{ ".svn" };
	m_writeAll = false;
	m_startWithLastSession = true;
	m_chartStyleFileLastUsed.clear();
	m_newestRejectedVersion.clear();
	m_updateUrl.clear();
	m_chartVectorExportDimensionHistory.clear();
	m_exportHeadersEnabled = true;
	m_exportGermanFormatEnabled = -1;
	m_exportSeperateLinesForUnitsEnabled = false;
	m_panelEastVisible = true;
	m_panelWestVisible = true;
	m_panelSouthVisible = true;

	m_usedFileColor = QColor("LightYellow");
	m_selectedMapperFileColor = QColor("LemonChiffon");
}


void Settings::read() {
	QtExt::Settings::read();
	std::unique_ptr<QSettings> store = openStore();

	m_userColoring = readBool(*store, "UserColoring", m_userColoring);
	m_decimalPlaces = readInt(*store, "DecimalPlaces", m_decimalPlaces, 0, 20);
	m_fileNameFilter = readStringList(*store, "FileNameFilter", m_fileNameFilter);
	m_excludedDirNames = readStringList(*store, "ExcludedDirNames", m_excludedDirNames);
	m_writeAll = readBool(*store, "WriteAll", m_writeAll);
	m_startWithLastSession = readBool(*store, "StartWithLastSession", m_startWithLastSession);
	m_chartStyleFileLastUsed = readString(*store, "ChartStyleFileLastUsed", m_chartStyleFileLastUsed);
	m_newestRejectedVersion = readString(*store, "NewestRejectedVersion", m_newestRejectedVersion);
	// the export dialog keeps its sizes under "dimensionHistory" too; either key fills the list
	m_chartVectorExportDimensionHistory = readStringList(*store, "dimensionHistory", m_chartVectorExportDimensionHistory);
	m_updateUrl = readString(*store, "UpdateUrl", m_updateUrl);
	m_chartVectorExportDimensionHistory = readStringList(*store, "ChartVectorExportDimensionHistory",
														 m_chartVectorExportDimensionHistory);
	m_exportHeadersEnabled = readBool(*store, "ExportHeadersEnabled", m_exportHeadersEnabled);
	m_exportGermanFormatEnabled = readInt(*store, "ExportGermanFormatEnabled", m_exportGermanFormatEnabled, -1, 1);
	m_exportSeperateLinesForUnitsEnabled = readBool(*store, "ExportSeperateLinesForUnitsEnabled",
													m_exportSeperateLinesForUnitsEnabled);
	m_panelEastVisible = readBool(*store, "PanelEastVisible", m_panelEastVisible);
	m_panelWestVisible = readBool(*store, "PanelWestVisible", m_panelWestVisible);
	m_panelSouthVisible = readBool(*store, "PanelSouthVisible", m_panelSouthVisible);
}


void Settings::write(const QByteArray & geometry, const QByteArray & state) {
	FUNCID(Settings::write);
	QtExt::Settings::write(geometry, state);
	std::unique_ptr<QSettings> store = openStore();

	store->setValue("UserColoring", m_userColoring);
	store->setValue("DecimalPlaces", m_decimalPlaces);
	store->setValue("FileNameFilter", m_fileNameFilter);
	store->setValue("ExcludedDirNames", m_excludedDirNames);
	store->setValue("WriteAll", m_writeAll);
	store->setValue("StartWithLastSession", m_startWithLastSession);
	store->setValue("ChartStyleFileLastUsed", m_chartStyleFileLastUsed);
	store->setValue("NewestRejectedVersion", m_newestRejectedVersion);
	store->setValue("UpdateUrl", m_updateUrl);
	store->setValue("ChartVectorExportDimensionHistory", m_chartVectorExportDimensionHistory);
	store->setValue("dimensionHistory", m_chartVectorExportDimensionHistory);
	store->setValue("ExportHeadersEnabled", m_exportHeadersEnabled);
	store->setValue("ExportGermanFormatEnabled", m_exportGermanFormatEnabled);
	store->setValue("ExportSeperateLinesForUnitsEnabled", m_exportSeperateLinesForUnitsEnabled);
	store->setValue("PanelEastVisible", m_panelEastVisible);
	store->setValue("PanelWestVisible", m_panelWestVisible);
	store->setValue("PanelSouthVisible", m_panelSouthVisible);

	store->sync();
	if (store->status() != QSettings::NoError)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write settings to '%1'.")
							 .arg(store->fileName().toStdString()), FUNC_ID);
}

} // namespace OVP
