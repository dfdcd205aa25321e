#ifndef Sci_PropertyRoleTableH
#define Sci_PropertyRoleTableH

#include <vector>

#include <QCoreApplication>
#include <QString>

namespace SCI {

class AbstractChartModel;

/*! The roles of the chart models that a user may edit, per kind of target (the chart, an axis
	and the series of each series kind): for each role its display name in user words, the group
	it is shown in, the kind of editor with its range, decimals or choices. Roles that hold data,
	are computed, are read-only aliases or are set by the program rather than the user are listed
	apart as not editable, so that every role of a model is in exactly one of the two lists.

	Names, groups and choices are stored untranslated (marked for translation in the context
	"SCI::PropertyRoleTable"); Entry::name(), Entry::group() and choiceText() translate them.
*/
class PropertyRoleTable {
	Q_DECLARE_TR_FUNCTIONS(SCI::PropertyRoleTable)
public:
	/*! What the roles of a table address. */
	enum Target {
		ChartTarget,		///< chart roles, AbstractChartModel::ChartDataRole
		AxisTarget,			///< axis roles, AbstractCartesianChartModel::AxisDataRole
		LineSeriesTarget,	///< AbstractLineSeriesModel::SeriesDataRole
		ColorGridTarget,	///< AbstractColorGridSeriesModel::SeriesDataRole
		VectorFieldTarget,	///< AbstractVectorFieldSeriesModel::SeriesDataRole
		BarSeriesTarget,	///< AbstractBarSeriesModel::SeriesDataRole
		NUM_TARGETS
	};

	/*! The kind of editor a role needs, with the QVariant type it exchanges. */
	enum EditorKind {
		BoolEditor,			///< bool
		IntEditor,			///< int (unsigned int for the marker size), range m_minimum..m_maximum
		DoubleEditor,		///< double, range and m_decimals
		StringEditor,		///< QString
		EnumEditor,			///< int, one of m_choices
		ColorEditor,		///< QColor
		FontEditor,			///< QFont
		PenEditor,			///< QPen: colour, width and style
		DateTimeEditor,		///< QDateTime
		StringListEditor,	///< QStringList
		ColorMapEditor,		///< SCI::ColorMap
		UnitEditor,			///< unsigned int, the id of a ZEB::Unit
		SizeEditor			///< QSize, range for width and height
	};

	/*! One choice of an enum role: the value stored and its (untranslated) text. */
	struct Choice {
		int				m_value;
		const char *	m_text;
	};

	/*! One editable role. */
	struct Entry {
		int					m_role = 0;
		/*! Display name in user words, untranslated ("maximum", "pen colour"). */
		const char *		m_name = nullptr;
		/*! Group the role is shown in, untranslated ("Scale", "Legend"). */
		const char *		m_group = nullptr;
		EditorKind			m_kind = BoolEditor;
		/*! Range of number and size editors. */
		double				m_minimum = 0;
		double				m_maximum = 0;
		/*! Decimals of double editors. */
		int					m_decimals = 0;
		/*! Text shown for the special value of a number editor (the minimum of an int editor,
			NaN for a double editor), e.g. "no limit"; null when the role has none. */
		const char *		m_specialValueText = nullptr;
		/*! The compound role this role is a part of (a pen's width or colour), -1 for none. A
			panel shows either the compound or its parts. */
		int					m_partOf = -1;
		/*! Choices of an enum editor, in display order. */
		std::vector<Choice>	m_choices;

		QString name() const;
		QString group() const;
		/*! The translated text of a choice value, empty when the value is not a choice. */
		QString choiceText(int value) const;
	};

	/*! The editable roles of a target, in display order. */
	static const std::vector<Entry> & editableRoles(Target target);
	/*! The roles of a target that a user does not edit: data, computed values, read-only aliases
		and state set by the program. */
	static const std::vector<int> & notEditableRoles(Target target);
	/*! The entry of an editable role, null for roles not editable and unknown roles. */
	static const Entry * entry(Target target, int role);
	/*! The roles of a target are firstRole(target) <= role < roleEnd(target). */
	static int firstRole(Target target);
	static int roleEnd(Target target);

	/*! The series target of a chart model by its kind of series, NUM_TARGETS when the model is
		none of the four series kinds. */
	static Target seriesTarget(const AbstractChartModel & model);
	/*! The axis at a position in user words: "x-axis", "y-axis", "right y-axis". */
	static QString axisName(int axisPosition);

private:
	/*! The editable roles of a target, built once by editableRoles(). */
	static std::vector<Entry> build(Target target);
};

} // namespace SCI

#endif // Sci_PropertyRoleTableH
