#include "OVP_DataPathRemap.h"

#include <QFileInfo>

#include <ZEB_Path.h>

#include "OVP_ProjectRelativePath.h"

namespace OVP {

namespace {

/*! True when a normalised path is the normalised folder itself or lies below it. */
bool inFolder(const QString & path, const QString & folder) {
	if (path == folder)
		return true;
	// a root ends with its separator already
	return path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

} // namespace


void DataPathRemap::addFolder(const QString & oldFolder, const QString & newFolder) {
	const FolderPair pair(ProjectRelativePath::normalized(oldFolder), ProjectRelativePath::normalized(newFolder));
	for (FolderPair & f : m_folders)
		if (f.first == pair.first) {
			f.second = pair.second;
			return;
		}
	m_folders.push_back(pair);
}


QString DataPathRemap::apply(const QString & path) const {
	const FolderPair * deepest = nullptr;
	const QString normalized = m_folders.empty() ? path : ProjectRelativePath::normalized(path);
	for (const FolderPair & f : m_folders)
		if (inFolder(normalized, f.first) && (deepest == nullptr || f.first.size() > deepest->first.size()))
			deepest = &f;
	if (deepest == nullptr)
		return path;
	return ProjectRelativePath::normalized(deepest->second + '/' + normalized.mid(deepest->first.size()));
}


bool DataPathRemap::addFolderFor(const QString & missingFile, const QString & newFolder,
								 const QStringList & missingFiles)
{
	const ZEB::Path file(ProjectRelativePath::normalized(missingFile).toStdString());
	const ZEB::Path folder(ProjectRelativePath::normalized(newFolder).toStdString());
	const std::size_t branches = file.branchCount();
	int bestCount = -1;
	QString bestOldFolder;
	// the old folder keeps at least the root, the trailing part at least the file name
	for (std::size_t tail = 1; tail < branches; ++tail) {
		if (!(folder / file.subBranch(branches - tail, tail)).isFile())
			continue;
		const QString oldFolder = QString::fromStdString(file.subBranch(0, branches - tail).str());
		DataPathRemap candidate(*this);
		candidate.addFolder(oldFolder, newFolder);
		const int count = candidate.existingCount(missingFiles);
		if (count > bestCount) {
			bestCount = count;
			bestOldFolder = oldFolder;
		}
	}
	if (bestCount < 0)
		return false;
	addFolder(bestOldFolder, newFolder);
	return true;
}


QString DataPathRemap::commonFolder(const QStringList & files) {
	if (files.isEmpty())
		return QString();
	ZEB::Path common = ZEB::Path(ProjectRelativePath::normalized(files.front()).toStdString()).parentPath();
	for (const QString & f : files) {
		const QString path = ProjectRelativePath::normalized(f);
		while (!inFolder(path, QString::fromStdString(common.str()))) {
			if (common.branchCount() <= 1)
				return QString();
			common = common.parentPath();
		}
	}
	if (common.branchCount() <= 1)
		return QString();
	return QString::fromStdString(common.str());
}


int DataPathRemap::existingCount(const QStringList & files) const {
	int count = 0;
	for (const QString & f : files)
		if (QFileInfo(apply(f)).isFile())
			++count;
	return count;
}

} // namespace OVP
