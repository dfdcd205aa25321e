#ifndef OVP_UndoDataSetSetupH
#define OVP_UndoDataSetSetupH

#include <QCoreApplication>
#include <QString>
#include <QUndoCommand>

#include "OVP_DataSetSetup.h"

namespace OVP {

class Mapper;

/*! The undoable change of how one extractor entry of a chart of the open session is set up
	(Mapper::setDataSetSetup()), from an old to a new setup; each step marks the session modified
	(ProjectHandler::mapperContentChanged()). The text names what changed and the series, e.g.
	"change time point of 'Wall temperature'". A step that fails (a file vanished meanwhile) is
	reported, changes nothing and makes the command obsolete, so that the stack drops it.
*/
class UndoDataSetSetup : public QUndoCommand {
	Q_DECLARE_TR_FUNCTIONS(UndoDataSetSetup)
public:
	/*! The change of entry entryIndex of the mapper at mapperIndex. Throws ZEB::Exception when the
		session has no such mapper or entry.
	*/
	UndoDataSetSetup(int mapperIndex, unsigned int entryIndex, const DataSetSetup & oldSetup,
					 const DataSetSetup & newSetup, QUndoCommand * parent = nullptr);

	void undo() override;
	void redo() override;

	/*! "change time point of '<name>'", or of what else differs between the setups; "change data
		set of '<name>'" when several things differ.
	*/
	static QString changeText(const DataSetSetup & oldSetup, const DataSetSetup & newSetup, const QString & name);

private:
	/*! The mapper of the command in the open session; throws ZEB::Exception when it has none. */
	Mapper & mapper(const char * functionId) const;
	/*! Gives the entry a setup; a failure is reported and makes the command obsolete. */
	void apply(const DataSetSetup & setup);

	int				m_mapperIndex;
	unsigned int	m_entryIndex;
	DataSetSetup	m_oldSetup;
	DataSetSetup	m_newSetup;
};

} // namespace OVP

#endif // OVP_UndoDataSetSetupH
