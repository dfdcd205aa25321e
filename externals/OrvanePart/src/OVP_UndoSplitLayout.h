#ifndef OVP_UndoSplitLayoutH
#define OVP_UndoSplitLayoutH

#include "OVP_UndoCommand.h"

namespace OVP {

/*! A change of the split chart views: a view split or removed, or another chart shown in a
	view. Consecutive changes of the charts shown merge into one step, so that browsing the
	charts does not fill the stack.
*/
class UndoSplitLayout : public UndoCommand {
public:
	UndoSplitLayout(ProjectHandler & handler, const SplitLayout & before, const SplitLayout & after);

	int id() const override;
	/*! Merges a following change of the charts shown; a merge back to the layout before
		makes the command obsolete. */
	bool mergeWith(const QUndoCommand * other) override;

protected:
	void doRedo() override { applyLayout(m_after); }
	void doUndo() override { applyLayout(m_before); }

private:
	/*! True when only the charts shown differ (the same views in the same arrangement). */
	static bool sameViews(const SplitLayout & a, const SplitLayout & b);

	SplitLayout	m_before;
	SplitLayout	m_after;
};

} // namespace OVP

#endif // OVP_UndoSplitLayoutH
