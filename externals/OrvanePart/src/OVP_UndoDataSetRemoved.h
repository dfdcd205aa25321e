#ifndef OVP_UndoDataSetRemovedH
#define OVP_UndoDataSetRemovedH

#include <memory>

#include "OVP_MapperSnapshot.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! A series removed from a line chart (Mapper::removeExtractor()). Doing takes a snapshot of the
	chart first; undoing reads the chart back from it and puts the series back at its place with
	its title and display properties.
*/
class UndoDataSetRemoved : public UndoCommand {
public:
	/*! Removes series entryIndex of the mapper at mapperIndex when done (both must exist). */
	UndoDataSetRemoved(ProjectHandler & handler, int mapperIndex, unsigned int entryIndex, const QString & text);
	~UndoDataSetRemoved() override;

	/*! Reads the chart back from the snapshot; throws ZEB::Exception when it cannot be read. */
	void prepareUndo() override;
	/*! Throws ZEB::Exception when the series cannot be removed (Mapper::checkRemovable()). */
	void prepareRedo() override;

protected:
	void doRedo() override;
	void doUndo() override;

private:
	int							m_mapperIndex;
	unsigned int				m_entryIndex;
	/*! The chart before the series was removed. */
	std::unique_ptr<MapperSnapshot>	m_snapshot;
	/*! The chart read back for the next undo. */
	std::unique_ptr<Mapper>		m_restored;
};

} // namespace OVP

#endif // OVP_UndoDataSetRemovedH
