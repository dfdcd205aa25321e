#include <gtest/gtest.h>

#include <random>
#include <set>

#include <ZEB_Exception.h>

#include "SplitTree.h"

namespace {

using Widget = OVP::SplitLayout::Widget;

OVP::SplitLayout layoutOf(const QList<Widget> & widgets, int focused) {
	OVP::SplitLayout layout;
	layout.m_widgets = widgets;
	layout.m_focusedWidget = focused;
	return layout;
}

/*! The mappers shown by the views of a tree, in view order. */
QList<int> shownMappers(const SplitTree & tree) {
	QList<int> mappers;
	for (int id : tree.views())
		mappers.append(tree.node(id).m_mapperIndex);
	return mappers;
}

/*! A stored layout: split 0 side by side into view 1 and split 2, which has views 3 and 4 on
	top of each other.
*/
OVP::SplitLayout nestedLayout() {
	return layoutOf({ Widget{ 0, -1, false, -1, 300, 200, 1 },
					  Widget{ 1, 0, true, 2, 0, 0, 0 },
					  Widget{ 2, 0, false, -1, 50, 70, 2 },
					  Widget{ 3, 2, false, 0, 0, 0, 0 },
					  Widget{ 4, 2, false, 4, 0, 0, 0 } }, 3);
}

} // namespace


TEST(SplitTree, StoredLayoutsAreKeptOrRepaired) {
	// an empty layout is one view of the first mapper, if any
	const SplitTree empty(OVP::SplitLayout(), 3);
	EXPECT_TRUE(empty.problem().isEmpty());
	EXPECT_EQ(shownMappers(empty), QList<int>{ 0 });
	EXPECT_EQ(shownMappers(SplitTree(OVP::SplitLayout(), 0)), QList<int>{ -1 });

	const SplitTree nested(nestedLayout(), 5);
	EXPECT_EQ(nested.views(), QList<int>({ 1, 3, 4 }));
	EXPECT_EQ(nested.viewOfMapper(4), 4);
	EXPECT_EQ(nested.viewOfMapper(1), -1);

	// mapper 4 does not exist with three mappers, mapper 0 is shown twice, the focus is on a
	// split, an orientation is none of the two (side by side then), a size is negative (0 then)
	const SplitTree repaired(layoutOf({ Widget{ 0, -1, false, -1, 0, 0, 7 }, Widget{ 1, 0, false, 0, 0, 0, 0 },
										Widget{ 2, 0, false, -1, -5, 3, 2 }, Widget{ 3, 2, false, 0, 0, 0, 0 },
										Widget{ 4, 2, false, 4, 0, 0, 0 } }, 2), 3);
	EXPECT_TRUE(repaired.problem().isEmpty());
	EXPECT_EQ(shownMappers(repaired), QList<int>({ 0, -1, -1 }));
	EXPECT_EQ(repaired.focusedView(), 1);
	EXPECT_EQ(repaired.node(0).m_orientation, 1);
	EXPECT_EQ(repaired.node(2).m_size1, 0);
	EXPECT_EQ(repaired.node(2).m_size2, 3);
}


TEST(SplitTree, UnusableStoredLayoutsBecomeOneView) {
	const QList<QList<Widget> > broken = {
		// two roots
		{ Widget{ 0, -1, false, 1, 0, 0, 0 }, Widget{ 1, -1, false, 2, 0, 0, 0 } },
		// unknown parent
		{ Widget{ 0, -1, false, -1, 0, 0, 1 }, Widget{ 1, 0, false, 1, 0, 0, 0 }, Widget{ 2, 9, false, 2, 0, 0, 0 } },
		// a split with only one part
		{ Widget{ 0, -1, false, -1, 0, 0, 1 }, Widget{ 1, 0, false, 1, 0, 0, 0 } },
		// a split with three parts
		{ Widget{ 0, -1, false, -1, 0, 0, 1 }, Widget{ 1, 0, false, 1, 0, 0, 0 }, Widget{ 2, 0, false, 2, 0, 0, 0 },
		  Widget{ 3, 0, false, -1, 0, 0, 0 } },
		// two widgets that are each other's parent, beside a root
		{ Widget{ 0, -1, false, 2, 0, 0, 0 }, Widget{ 1, 2, false, 1, 0, 0, 0 }, Widget{ 2, 1, false, -1, 0, 0, 0 } },
		// an id used twice
		{ Widget{ 0, -1, false, -1, 0, 0, 1 }, Widget{ 1, 0, false, 1, 0, 0, 0 }, Widget{ 1, 0, false, 2, 0, 0, 0 } },
		// an id far out of range
		{ Widget{ 2147483647, -1, false, 1, 0, 0, 0 } },
	};
	for (int i = 0; i < broken.size(); ++i) {
		const SplitTree tree(layoutOf(broken[i], 0), 3);
		EXPECT_FALSE(tree.problem().isEmpty()) << "case " << i;
		EXPECT_EQ(tree.views().size(), 1) << "case " << i;
		EXPECT_EQ(shownMappers(tree), QList<int>{ 0 }) << "case " << i;
	}
}


TEST(SplitTree, SplitAndUnify) {
	SplitTree tree(OVP::SplitLayout(), 3);
	const int first = tree.views().first();

	// the new part shows the first mapper that is not shown yet
	const int second = tree.split(first, 1);
	EXPECT_EQ(shownMappers(tree), QList<int>({ 0, 1 }));
	const int firstPart = tree.views().first();
	EXPECT_EQ(tree.focusedView(), second);

	const int third = tree.split(second, 2);
	EXPECT_EQ(shownMappers(tree), QList<int>({ 0, 1, 2 }));
	// no mapper left for a fourth view
	tree.split(third, 1);
	EXPECT_EQ(shownMappers(tree), QList<int>({ 0, 1, 2, -1 }));

	// removing the first view promotes the nested splits into the root
	ASSERT_TRUE(tree.unify(firstPart));
	EXPECT_EQ(shownMappers(tree), QList<int>({ 1, 2, -1 }));
	EXPECT_EQ(tree.node(tree.root()).m_orientation, 2);
	EXPECT_EQ(tree.focusedView(), tree.views().first());
	EXPECT_TRUE(SplitTree(tree.layout(), 3).problem().isEmpty());

	tree.unifyAll(tree.views()[1]);
	EXPECT_EQ(tree.views().size(), 1);
	EXPECT_EQ(shownMappers(tree), QList<int>{ 2 });
	EXPECT_FALSE(tree.unify(tree.views().first()));

	EXPECT_THROW(tree.split(tree.views().first(), 0), ZEB::Exception);
}


TEST(SplitTree, ViewsAreVisitedInOrderAndMappersMoveBetweenViews) {
	SplitTree tree(nestedLayout(), 5);
	EXPECT_EQ(tree.nextView(4), 1);
	// a mapper shown elsewhere leaves its old view
	tree.showMapper(3, 2);
	EXPECT_EQ(shownMappers(tree), QList<int>({ -1, 2, 4 }));
	EXPECT_THROW(tree.showMapper(1, 5), ZEB::Exception);
	EXPECT_THROW(tree.showMapper(2, 0), ZEB::Exception);	// a split shows no chart
	EXPECT_THROW(tree.setSizes(1, 10, 10), ZEB::Exception);	// a view has no parts
}


TEST(SplitTree, RandomEditsKeepAUsableTree) {
	std::mt19937 random(4711);
	const int mapperCount = 4;
	SplitTree tree(OVP::SplitLayout(), mapperCount);
	int expectedViews = 1;
	for (int step = 0; step < 2000; ++step) {
		const QList<int> views = tree.views();
		const int view = views[static_cast<int>(random() % static_cast<unsigned int>(views.size()))];
		switch (random() % 5) {
			case 0 :
				if (views.size() < 12) {
					tree.split(view, 1 + static_cast<int>(random() % 2));
					++expectedViews;
				}
				break;
			case 1 :
				if (tree.unify(view))
					--expectedViews;
				break;
			case 2 :
				tree.showMapper(view, static_cast<int>(random() % (mapperCount + 1)) - 1);
				break;
			case 3 :
				tree.setFocusedView(view);
				break;
			default :
				if (random() % 10 == 0) {
					tree.unifyAll(view);
					expectedViews = 1;
				}
		}
		ASSERT_EQ(tree.views().size(), expectedViews) << "step " << step;
		// the edited layout is a usable stored layout that is kept as it is
		const SplitTree reread(tree.layout(), mapperCount);
		ASSERT_TRUE(reread.problem().isEmpty()) << "step " << step << ": " << reread.problem().toStdString();
		ASSERT_TRUE(reread.layout() == tree.layout()) << "step " << step;
		// no mapper is shown twice and the focus is on a view
		std::set<int> shown;
		for (int m : shownMappers(tree))
			ASSERT_TRUE(m == -1 || shown.insert(m).second) << "step " << step;
		ASSERT_TRUE(tree.views().contains(tree.focusedView())) << "step " << step;
	}
}
