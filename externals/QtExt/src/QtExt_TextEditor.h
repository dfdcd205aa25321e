#ifndef QtExt_TextEditorH
#define QtExt_TextEditorH

#include <QString>

namespace QtExt {

/*! The user's external text editor, given by its executable: a path, or a program name looked
	up on the executable search path.
*/
class TextEditor {
public:
	/*! The executable to start: an existing executable file given by its path, or the program
		found on the executable search path for a bare name; empty when there is none.
	*/
	static QString resolvedExecutable(const QString & executable);

	/*! Starts the editor as a detached process with the file as its argument.
		Throws ZEB::Exception when the editor cannot be found or started.
	*/
	static void open(const QString & executable, const QString & file);
};

} // namespace QtExt

#endif // QtExt_TextEditorH
