#include "QtExt_TextEditor.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace QtExt {

QString TextEditor::resolvedExecutable(const QString & executable) {
	const QString trimmed = executable.trimmed();
	if (trimmed.isEmpty())
		return QString();
	// a name without folder is a program on the search path
	if (!trimmed.contains('/') && !trimmed.contains(QDir::separator()))
		return QStandardPaths::findExecutable(trimmed);
	const QFileInfo info(trimmed);
	return info.isFile() && info.isExecutable() ? info.absoluteFilePath() : QString();
}


void TextEditor::open(const QString & executable, const QString & file) {
	FUNCID(TextEditor::open);
	const QString program = resolvedExecutable(executable);
	if (program.isEmpty())
		throw ZEB::Exception(ZEB::MessageFormat("Text editor '%1' not found.").arg(executable.toStdString()), FUNC_ID);
	if (!QProcess::startDetached(program, QStringList{ file }))
		throw ZEB::Exception(ZEB::MessageFormat("Cannot start text editor '%1'.").arg(program.toStdString()), FUNC_ID);
}

} // namespace QtExt
