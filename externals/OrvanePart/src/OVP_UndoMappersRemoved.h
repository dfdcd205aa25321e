#ifndef OVP_UndoMappersRemovedH
#define OVP_UndoMappersRemovedH

#include <memory>
#include <vector>

#include "OVP_MapperSnapshot.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! Charts deleted: the mappers at some mapper indices removed. Doing takes a snapshot of each;
	undoing rebuilds them from their snapshots at their places, and the views show them again.
*/
class UndoMappersRemoved : public UndoCommand {
public:
	/*! Removes the mappers at indices (ascending, each once) when done. */
	UndoMappersRemoved(ProjectHandler & handler, const std::vector<int> & indices, const QString & text);
	~UndoMappersRemoved() override;

	/*! Rebuilds every removed mapper from its snapshot; nothing is kept when one fails. */
	void prepareUndo() override;

protected:
	void doRedo() override;
	void doUndo() override;

private:
	std::vector<int>						m_indices;
	/*! Snapshots of the removed mappers, in the order of m_indices. */
	std::vector<MapperSnapshot>				m_snapshots;
	/*! The rebuilt mappers to insert by the next undo. */
	std::vector<std::unique_ptr<Mapper> >	m_rebuilt;
};

} // namespace OVP

#endif // OVP_UndoMappersRemovedH
