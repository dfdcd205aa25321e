#ifndef OVP_UndoMapperInsertedH
#define OVP_UndoMapperInsertedH

#include <memory>

#include "OVP_MapperSnapshot.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! A chart created or duplicated: a new mapper inserted at a mapper index. Undoing takes the
	mapper out again and keeps its snapshot, from which redoing rebuilds it.
*/
class UndoMapperInserted : public UndoCommand {
public:
	/*! Inserts mapper at index when done. */
	UndoMapperInserted(ProjectHandler & handler, int index, std::unique_ptr<Mapper> mapper, const QString & text);
	~UndoMapperInserted() override;

	/*! Rebuilds the mapper from its snapshot. */
	void prepareRedo() override;

protected:
	void doRedo() override;
	void doUndo() override;

private:
	int								m_index;
	/*! The mapper to insert next; null while it is in the session. */
	std::unique_ptr<Mapper>			m_mapper;
	/*! The mapper as it was taken out by the last undo. */
	std::unique_ptr<MapperSnapshot>	m_snapshot;
};

} // namespace OVP

#endif // OVP_UndoMapperInsertedH
