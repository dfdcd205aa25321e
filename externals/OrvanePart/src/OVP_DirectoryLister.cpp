#include "OVP_DirectoryLister.h"

#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace OVP {

QStringList DirectoryLister::files(const QString & directory, const QStringList & patterns) const {
	FUNCID(DirectoryLister::files);
	const QFileInfo info(directory);
	if (!info.exists())
		throw ZEB::Exception(ZEB::MessageFormat("Directory '%1' does not exist.").arg(directory.toStdString()), FUNC_ID);
	if (!info.isDir())
		throw ZEB::Exception(ZEB::MessageFormat("'%1' is not a directory.").arg(directory.toStdString()), FUNC_ID);
	if (!info.isReadable() || !info.isExecutable())
		throw ZEB::Exception(ZEB::MessageFormat("Directory '%1' cannot be read (missing permissions).")
							 .arg(directory.toStdString()), FUNC_ID);
	// System includes broken symbolic links, which Files alone would hide
	const QFileInfoList entries = QDir(directory).entryInfoList(QDir::Files | QDir::System, QDir::Name | QDir::IgnoreCase);
	std::vector<QRegularExpression> wildcards;
	for (const QString & pattern : patterns)
		wildcards.emplace_back(QRegularExpression::wildcardToRegularExpression(pattern),
							   QRegularExpression::CaseInsensitiveOption);
	QStringList paths;
	for (const QFileInfo & entry : entries) {
		const bool brokenLink = entry.isSymLink() && !entry.exists();
		if (!entry.isFile() && !brokenLink)
			continue;
		for (const QRegularExpression & wildcard : wildcards)
			if (wildcard.match(entry.fileName()).hasMatch()) {
				paths << entry.absoluteFilePath();
				break;
			}
	}
	return paths;
}


} // namespace OVP
