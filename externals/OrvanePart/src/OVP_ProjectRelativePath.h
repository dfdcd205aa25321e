#ifndef OVP_ProjectRelativePathH
#define OVP_ProjectRelativePathH

#include <QString>

namespace OVP {

/*! The form in which a project file stores directories and data files: relative to the folder of
	the project file where that works without going up a level, so that a project folder moved
	together with its data keeps working, and absolute otherwise.
*/
class ProjectRelativePath {
public:
	/*! The text written to the project file for an absolute path: "./" for the project folder
		itself, "./" followed by the relative path for anything below it, and the normalised
		absolute path when the relative path would need ".." or cannot be formed (another drive).
	*/
	static QString toFileText(const QString & absolutePath, const QString & projectDir);

	/*! The absolute, normalised path of a text read from the project file: relative texts are
		resolved against the project folder, absolute ones are kept.
	*/
	static QString resolve(const QString & fileText, const QString & projectDir);

	/*! The normalised absolute form of a path; relative paths are taken relative to the current
		directory. Paths are compared in this form.
	*/
	static QString normalized(const QString & path);
};

} // namespace OVP

#endif // OVP_ProjectRelativePathH
