#include "OVP_TemporaryTarget.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace OVP {

TemporaryTarget::TemporaryTarget(const QString & target) :
	m_target(target)
{
	FUNCID(TemporaryTarget::TemporaryTarget);
	const QFileInfo info(target);
	if (info.isDir())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write '%1': it is a folder.").arg(target.toStdString()), FUNC_ID);
	const QFileInfo folder(info.absolutePath());
	if (!folder.isDir())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write '%1': '%2' is no existing folder.")
							 .arg(target.toStdString()).arg(folder.filePath().toStdString()), FUNC_ID);
	QTemporaryFile file(info.absoluteFilePath() + ".XXXXXX.part");
	file.setAutoRemove(false);
	if (!file.open())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write '%1': no file can be created in the folder '%2' (%3).")
							 .arg(target.toStdString()).arg(folder.filePath().toStdString())
							 .arg(file.errorString().toStdString()), FUNC_ID);
	m_temporary = file.fileName();
	// the temporary file is private to its owner; the finished file gets the permissions of the
	// file it replaces, or those of a new file
	file.setPermissions(info.exists() ? info.permissions() :
		QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser | QFile::ReadGroup | QFile::ReadOther);
}


TemporaryTarget::~TemporaryTarget() {
	if (!m_committed)
		QFile::remove(m_temporary);
}


std::string TemporaryTarget::path() const {
	return QFile::encodeName(m_temporary).toStdString();
}


void TemporaryTarget::commit() {
	FUNCID(TemporaryTarget::commit);
	// std::rename replaces an existing target atomically on POSIX systems
	if (std::rename(path().c_str(), QFile::encodeName(m_target).constData()) != 0)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write '%1': renaming the finished temporary file onto it "
			"failed (%2).").arg(m_target.toStdString()).arg(std::strerror(errno)), FUNC_ID);
	m_committed = true;
}

} // namespace OVP
