#ifndef OVP_UndoCommandH
#define OVP_UndoCommandH

#include <memory>

#include <QUndoCommand>

#include "OVP_SplitLayout.h"

namespace OVP {

class Mapper;
class MapperTreeModel;
class ProjectHandler;

/*! Base of the undoable changes of the open session on the project handler's undo stack. While
	a command is done or undone, the changes it makes (and those the views make in reply, such as
	showing a new chart in the focused view) are announced as usual but belong to the command:
	they do not mark the session modified beyond the undo stack.

	Commands that change the mapper list keep the split layout as it was before and after they
	were first done, so that undoing brings back every view as it was.
*/
class UndoCommand : public QUndoCommand {
public:
	/*! Does the change; the first time, a command that tracks the layout takes it before and
		after. A failure to prepare (prepareRedo()) is reported, changes nothing and makes the
		command obsolete. */
	void redo() final;
	/*! Undoes the change; a command that tracks the layout restores the one taken before. A
		failure to prepare (prepareUndo()) is handled as in redo(). */
	void undo() final;

	/*! Prepares what undo() needs where that may fail, so that the failure is told before
		anything is changed; the handler calls it first. Throws ZEB::Exception. */
	virtual void prepareUndo() {}
	/*! Prepares what redo() needs, as prepareUndo() does. */
	virtual void prepareRedo() {}

protected:
	UndoCommand(ProjectHandler & handler, const QString & text, bool tracksLayout);

	/*! The change itself, without the layout tracking. */
	virtual void doRedo() = 0;
	virtual void doUndo() = 0;

	ProjectHandler & handler() const { return m_handler; }
	MapperTreeModel & mappers() const;

	/*! Inserts a mapper at a mapper index, renumbering the views, and announces it. */
	void insertMapper(int index, std::unique_ptr<Mapper> mapper);
	/*! Removes the mapper at a mapper index (its views show none) and announces it. */
	void removeMapper(int index);
	/*! Replaces the split layout and announces it. */
	void applyLayout(const SplitLayout & layout);

private:
	/*! Runs prepareUndo() (undoing) or prepareRedo(); reports a failure, makes the command
		obsolete and returns false. */
	bool prepare(bool undoing);

	ProjectHandler &	m_handler;
	bool				m_tracksLayout;
	/*! True once the command was done the first time. */
	bool				m_done = false;
	SplitLayout			m_layoutBefore;
	SplitLayout			m_layoutAfter;
};

} // namespace OVP

#endif // OVP_UndoCommandH
