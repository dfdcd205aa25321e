#ifndef OVP_UndoMappersMovedH
#define OVP_UndoMappersMovedH

#include <vector>

#include "OVP_UndoCommand.h"

namespace OVP {

/*! Charts moved within the mapper list; the views keep showing their charts. */
class UndoMappersMoved : public UndoCommand {
public:
	/*! Rearranges the mappers when done: order lists every old mapper index once, in the new
		order. */
	UndoMappersMoved(ProjectHandler & handler, const std::vector<int> & order, const QString & text);

protected:
	void doRedo() override { reorder(m_order); }
	void doUndo() override;

private:
	/*! Rearranges the mappers and renumbers the views. */
	void reorder(const std::vector<int> & order);

	std::vector<int>	m_order;
};

} // namespace OVP

#endif // OVP_UndoMappersMovedH
