#ifndef OVP_SplitLayoutH
#define OVP_SplitLayoutH

#include <vector>

#include <QList>

class TiXmlElement;

namespace OVP {

/*! The layout of the split chart views of a project: the split widgets with their parent
	relation, the mapper each shows and the sizes of its parts, plus the widget that has the
	focus. The view layer decides what the numbers mean; the project only keeps and stores them
	(element Splitting of the project file).
*/
class SplitLayout {
public:
	/*! One split widget. */
	struct Widget {
		int		m_id = 0;
		int		m_parent = -1;
		bool	m_viewTable = false;
		/*! Index of the mapper shown, -1 for none. */
		int		m_mapperIndex = -1;
		int		m_size1 = 0;
		int		m_size2 = 0;
		int		m_orientation = 0;
		bool operator==(const Widget & other) const;
	};

	/*! Reads the children of a Splitting element, replacing the layout.
		Throws ZEB::Exception for unknown children and unreadable numbers.
	*/
	void readXML(const TiXmlElement * element);
	/*! Appends a Splitting element to parent. */
	void writeXML(TiXmlElement * parent) const;

	/*! Adapts the mapper indices after mappers first..first+count-1 were removed from the
		mapper list: widgets showing a removed mapper show none, later indices close up.
	*/
	void mappersRemoved(int first, int count);
	/*! Adapts the mapper indices after the mapper list was rearranged (mappers inserted or
		moved): a widget showing mapper i shows newIndex[i] from now on. Indices that newIndex
		does not cover are kept.
	*/
	void mappersRenumbered(const std::vector<int> & newIndex);

	bool operator==(const SplitLayout & other) const {
		return m_widgets == other.m_widgets && m_focusedWidget == other.m_focusedWidget;
	}
	bool operator!=(const SplitLayout & other) const { return !(*this == other); }

	QList<Widget>	m_widgets;
	/*! Id of the widget with the focus. */
	int				m_focusedWidget = 0;
};

} // namespace OVP

#endif // OVP_SplitLayoutH
