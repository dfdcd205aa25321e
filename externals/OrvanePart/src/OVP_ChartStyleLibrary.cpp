#include "OVP_ChartStyleLibrary.h"

#include <QDir>

#include <Sci_ChartStyleFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_UserInteraction.h"

namespace OVP {

ChartStyleLibrary::ChartStyleLibrary(const QString & directory) :
	m_directory(directory)
{
}


QStringList ChartStyleLibrary::styleFiles() const {
	const QDir dir(m_directory);
	QStringList files;
	for (const QString & name : dir.entryList(QStringList{ QString("*") + SCI::ChartStyleFile::EXTENSION },
											  QDir::Files | QDir::Readable, QDir::Name))
		files.append(dir.filePath(name));
	return files;
}


QString ChartStyleLibrary::saveStyle(QWidget * parent, UserInteraction & userInteraction,
									 SCI::AbstractChartModel & model) const
{
	FUNCID(ChartStyleLibrary::saveStyle);
	const QString name = userInteraction.askText(parent, tr("Save chart style/format"),
		tr("Enter a description for the style (will be used as filename):"));
	if (name.isEmpty())
		return QString();
	// the name becomes a file name in the library and nowhere else
	if (name.contains('/') || name.contains('\\') || name.startsWith('.'))
		throw ZEB::Exception(ZEB::MessageFormat("The style name '%1' must not contain '/' or '\\' nor start with '.'.")
							 .arg(name.toStdString()), FUNC_ID);
	if (!QDir().mkpath(m_directory))
		throw ZEB::Exception(ZEB::MessageFormat("Cannot create directory for chart styles '%1'.")
							 .arg(m_directory.toStdString()), FUNC_ID);
	const QString file = QDir(m_directory).filePath(name + SCI::ChartStyleFile::EXTENSION);
	if (QFileInfo::exists(file) && !userInteraction.askConfirmation(parent, tr("Save chart style/format"),
			tr("Style/Format name already exists. Overwrite?")))
		return QString();
	try {
		SCI::ChartStyleFile::save(model, file);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error saving chart style/format to file '%1'.")
							 .arg(file.toStdString()), FUNC_ID);
	}
	return file;
}

} // namespace OVP
