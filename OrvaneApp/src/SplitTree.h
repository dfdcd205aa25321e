#ifndef SplitTreeH
#define SplitTreeH

#include <QList>
#include <QString>

#include <OVP_SplitLayout.h>

/*! The layout of the split chart views as a binary tree, edited as data.

	Each record of an OVP::SplitLayout is a node: a node that other records name as parent is a
	split with exactly two parts (its children, in record order); its orientation is that of a
	Qt::Orientation (1 = parts side by side, 2 = parts on top of each other) and size1/size2 are
	the sizes of the two parts (both 0: equal parts). Every other node is a view that shows the
	chart of mapper m_mapperIndex (-1: none). The root has parent -1; the focused widget is always
	a view. A mapper's chart can be shown in only one view at a time.

	The constructor checks a stored layout: an unusable one (no single root, unknown parents,
	cycles, splits without exactly two parts, duplicate ids) is replaced by one view showing the
	first mapper, and problem() tells why.
*/
class SplitTree {
public:
	/*! Takes a stored layout for a project with mapperCount mappers. Views that show a mapper
		outside the list, or a mapper already shown by an earlier view, show none; an empty
		layout becomes one view showing the first mapper (if any).
	*/
	SplitTree(const OVP::SplitLayout & layout, int mapperCount);

	/*! The checked, possibly edited layout. */
	const OVP::SplitLayout & layout() const { return m_layout; }
	/*! Why the stored layout was replaced; empty when it could be used. */
	const QString & problem() const { return m_problem; }

	/*! Id of the root node. */
	int root() const;
	/*! The record of a node; throws ZEB::Exception for an unknown id. */
	const OVP::SplitLayout::Widget & node(int id) const;
	/*! Ids of the two parts of a split, in order; empty for a view. */
	QList<int> children(int id) const;
	/*! Ids of all views, depth first, first part before second part. */
	QList<int> views() const;
	/*! Id of the focused view. */
	int focusedView() const { return m_layout.m_focusedWidget; }
	/*! The view following a view in views() order, the first after the last. */
	int nextView(int viewId) const;
	/*! The view showing a mapper, -1 when none does. */
	int viewOfMapper(int mapperIndex) const;

	/*! Focuses a view; throws ZEB::Exception when id is no view. */
	void setFocusedView(int viewId);
	/*! Splits a view into two views along orientation (1 or 2). The first part keeps what the
		view showed, the second shows the first mapper that no view shows (or none). The focus
		goes to the new second part, so that a new chart lands there and the next split acts on
		it. Returns the id of the second part.
	*/
	int split(int viewId, int orientation);
	/*! Removes a view; the other part of its split takes the place of the split. The focus goes
		to the first view in the remaining part. Returns false for the only view.
	*/
	bool unify(int viewId);
	/*! Replaces all views by one that shows what the given view showed. */
	void unifyAll(int viewId);
	/*! Lets a view show a mapper (-1: none); a view that showed it so far shows none. */
	void showMapper(int viewId, int mapperIndex);
	/*! Lets a view show the data table of its chart instead of the chart, or the chart again. */
	void setViewTable(int viewId, bool viewTable);
	/*! Sets the sizes of the two parts of a split. */
	void setSizes(int splitId, int size1, int size2);

private:
	/*! Position of a record in the layout; -1 for an unknown id. */
	int rowOf(int id) const;
	/*! Position of a record; throws ZEB::Exception for an unknown id or a split where a view is
		expected (when view is true).
	*/
	int checkedRow(int id, bool view, const char * funcId) const;
	/*! Why a layout is no usable tree; empty when it is. */
	static QString structureProblem(const OVP::SplitLayout & layout);
	/*! Makes the views show existing mappers, each at most once, and the focus sit on a view. */
	void normalise();
	/*! Appends the views below a node in depth-first order. */
	void collectViews(int id, QList<int> & views) const;
	/*! An id not used by any record. */
	int unusedId() const;
	/*! One view showing a mapper. */
	static OVP::SplitLayout singleView(int mapperIndex, bool viewTable);

	OVP::SplitLayout	m_layout;
	int					m_mapperCount;
	QString				m_problem;
};

#endif // SplitTreeH
