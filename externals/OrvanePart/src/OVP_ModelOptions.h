#ifndef OVP_ModelOptionsH
#define OVP_ModelOptionsH

#include <string>
#include <vector>

#include <QCoreApplication>
#include <QString>

#include <EM_ModelParameter.h>

namespace OVP {

/*! The model for two selected 2D data sets: no model (one series per data set) or one of the
	damage models, with one value text per parameter key of the model, starting at its default.
	The model itself judges the values.
*/
class ModelOptions {
	Q_DECLARE_TR_FUNCTIONS(ModelOptions)
public:
	/*! The model type keywords offered, in menu order; the empty keyword (no model) first. */
	static std::vector<std::string> modelTypes();
	/*! The menu text of a model type: the model's title, "None" for no model. */
	static QString modelText(const std::string & modelType);

	/*! The chosen model type keyword; empty for no model. */
	const std::string & modelType() const { return m_modelType; }
	/*! Chooses a model (one of modelTypes()) and sets its parameters to their defaults. Throws
		ZEB::Exception for an unknown keyword.
	*/
	void setModelType(const std::string & modelType);

	/*! The parameter keys of the chosen model with meaning, default and accepted range. */
	const std::vector<EM::ModelParameter> & parameters() const { return m_parameters; }
	/*! The value text of parameter i (i < parameters().size()). */
	const QString & value(unsigned int i) const { return m_values[i]; }
	/*! Sets the value text of parameter i, also one the model refuses (see errorText()).
		Throws ZEB::Exception for a parameter number the model does not have.
	*/
	void setValue(unsigned int i, const QString & value);

	/*! The model's message while it refuses the values, else empty. */
	QString errorText() const;
	/*! The parameter text of the values as the model writes it ("KEY value KEY value ..."),
		empty for no model. Throws the model's ZEB::Exception when it refuses the values.
	*/
	std::string parameterText() const;

private:
	std::string						m_modelType;
	std::vector<EM::ModelParameter>	m_parameters;
	std::vector<QString>			m_values;
};

} // namespace OVP

#endif // OVP_ModelOptionsH
