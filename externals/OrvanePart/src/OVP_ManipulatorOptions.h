#ifndef OVP_ManipulatorOptionsH
#define OVP_ManipulatorOptionsH

#include <string>

#include <QCoreApplication>
#include <QString>

#include "OVP_Mapper.h"

namespace OVP {

/*! The manipulator that new 2D series get, as the data manager's options offer it: none, the
	difference to the first value, scaling by a factor or adding an offset, with the parameter
	as the user typed it. The manipulator itself judges the parameter.
*/
class ManipulatorOptions {
	Q_DECLARE_TR_FUNCTIONS(ManipulatorOptions)
public:
	/*! The choices, in menu order. */
	enum Choice {
		MC_None,
		MC_Difference2First,
		MC_Scaling,
		MC_Offset,
		NUM_MC
	};

	/*! The menu text of a choice ("None", "Scale by factor", ...). */
	static QString text(Choice choice);
	/*! The label of the parameter field: "Factor:", "Offset:", or empty without parameter. */
	static QString parameterLabel(Choice choice);
	/*! The type keyword of the manipulator of a choice ("2DScaling", ...); empty for MC_None. */
	static std::string typeKeyword(Choice choice);
	/*! The choice of a manipulator type keyword; MC_None for an unknown keyword. */
	static Choice choice(const std::string & typeKeyword);

	Choice choice() const { return m_choice; }
	/*! Chooses a manipulator; the parameter becomes that manipulator's default. */
	void setChoice(Choice choice);

	const QString & parameter() const { return m_parameter; }
	/*! Takes the parameter text; a text the manipulator refuses is kept for further editing and
		makes errorText() tell so.
	*/
	void setParameter(const QString & parameter);
	/*! "Invalid parameter for manipulator." while the manipulator refuses the parameter, else
		empty.
	*/
	QString errorText() const;

	/*! The manipulators of a new series: none, or the chosen one with its parameter. Throws
		ZEB::Exception "Invalid parameter for manipulator." (with the manipulator's reason) for
		a refused parameter.
	*/
	Mapper::ManipulatorList manipulators() const;

private:
	Choice		m_choice = MC_None;
	QString		m_parameter;
};

} // namespace OVP

#endif // OVP_ManipulatorOptionsH
