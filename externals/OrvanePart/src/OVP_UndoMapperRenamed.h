#ifndef OVP_UndoMapperRenamedH
#define OVP_UndoMapperRenamedH

#include "OVP_UndoCommand.h"

namespace OVP {

/*! A chart renamed. */
class UndoMapperRenamed : public UndoCommand {
public:
	/*! Gives the mapper at index the name newName when done. */
	UndoMapperRenamed(ProjectHandler & handler, int index, const QString & oldName, const QString & newName);

protected:
	void doRedo() override { rename(m_newName); }
	void doUndo() override { rename(m_oldName); }

private:
	void rename(const QString & name);

	int		m_index;
	QString	m_oldName;
	QString	m_newName;
};

} // namespace OVP

#endif // OVP_UndoMapperRenamedH
