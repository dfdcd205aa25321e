#include "OVP_ProjectRelativePath.h"

#include <ZEB_Exception.h>
#include <ZEB_Path.h>

namespace OVP {

QString ProjectRelativePath::toFileText(const QString & absolutePath, const QString & projectDir) {
	const ZEB::Path path(absolutePath.toStdString());
	ZEB::Path relative;
	try {
		relative = path.relativePath(ZEB::Path(projectDir.toStdString()));
	}
	catch (ZEB::Exception &) {
		// no relative form exists (another drive or network root): the absolute path is the answer
		return QString::fromStdString(path.absolutePath().str());
	}
	const std::string & text = relative.str();
	if (text == ".")
		return "./";
	if (text == ".." || text.compare(0, 3, "../") == 0)
		return QString::fromStdString(path.absolutePath().str());
	if (text.compare(0, 2, "./") == 0)
		return QString::fromStdString(text);
	return QString::fromStdString("./" + text);
}


QString ProjectRelativePath::resolve(const QString & fileText, const QString & projectDir) {
	const ZEB::Path path(fileText.toStdString());
	if (path.isAbsolute())
		return QString::fromStdString(path.str());
	return QString::fromStdString((ZEB::Path(projectDir.toStdString()).absolutePath() / path).str());
}


QString ProjectRelativePath::normalized(const QString & path) {
	return QString::fromStdString(ZEB::Path(path.toStdString()).absolutePath().str());
}

} // namespace OVP
