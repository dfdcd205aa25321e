#ifndef OVP_UndoChartPropertyH
#define OVP_UndoChartPropertyH

#include <QVariant>

#include "OVP_UndoCommand.h"

namespace SCI {
class AbstractCartesianChartModel;
}

namespace OVP {

/*! A change of one property (role) of the chart model of a mapper: of the chart, of an axis or
	of a series. The text names the change in the words of the role tables, e.g. "change y-axis
	maximum" or "change pen colour of 'Temperature'". Consecutive changes of the same number or
	text property of the same target merge into one step, as typing or spinning a value is one
	change to the user.
*/
class UndoChartProperty : public UndoCommand {
public:
	/*! What a property belongs to. */
	enum TargetKind {
		ChartProperty,	///< the chart; the target index is not used
		AxisProperty,	///< the axis at the axis position given as target index
		SeriesProperty	///< the series at the target index
	};

	/*! Sets role of the target of the chart model of the mapper at mapperIndex from oldValue
		(as stored, see storedValue()) to newValue when done. When given, accepted is set by the
		first redo() to whether the model took the value.
	*/
	UndoChartProperty(ProjectHandler & handler, int mapperIndex, TargetKind kind, int targetIndex, int role,
					  const QVariant & oldValue, const QVariant & newValue, bool * accepted = nullptr);

	int id() const override;
	/*! Merges a following change of the same property of the same target when the property is
		a number or text; a merge back to the old value makes the command obsolete. */
	bool mergeWith(const QUndoCommand * other) override;

	/*! The value of a property as the chart model stores it, which the derived models may show
		differently (a series title with "$filename" replaced, an axis's date of zero taken from
		the data file).
	*/
	static QVariant storedValue(const SCI::AbstractCartesianChartModel & model, TargetKind kind, int targetIndex,
								int role);

protected:
	/*! Sets the new value; when the model refuses it, or it leaves the stored value as it was,
		the command becomes obsolete (and is not kept on the stack). */
	void doRedo() override;
	void doUndo() override;

private:
	/*! Sets the property of the target to value and announces it; false when the model refuses. */
	bool apply(const QVariant & value);
	/*! The text of the change of role of the target of model. */
	static QString describe(const SCI::AbstractCartesianChartModel & model, TargetKind kind, int targetIndex, int role);

	int			m_mapperIndex;
	TargetKind	m_kind;
	int			m_targetIndex;
	int			m_role;
	QVariant	m_oldValue;
	QVariant	m_newValue;
	/*! Number and text properties merge. */
	bool		m_mergeable;
	/*! Where the first redo() tells whether the model took the value; null afterwards. */
	bool *		m_accepted;
};

} // namespace OVP

#endif // OVP_UndoChartPropertyH
