#ifndef EM_ModelParameterH
#define EM_ModelParameterH

#include <limits>

namespace EM {

/*! Description of one key of a model's parameter text, for option panels that offer every key
	of a model with its default and the values the model accepts. Each model lists its keys in
	a table beside it (ModelTwo2DBase::parameterDescriptions()); reading and checking the values
	stays the model's own setFromParameter().
*/
struct ModelParameter {
	/*! Limit of a range that is open on that side. */
	static constexpr double UNBOUNDED = std::numeric_limits<double>::infinity();

	const char *	m_key;			///< key in the parameter text, e.g. "MC"
	const char *	m_description;	///< what the value means, with its unit (UTF-8)
	bool			m_integer;		///< only whole numbers are accepted
	double			m_default;		///< value of a freshly created model
	double			m_minimum;		///< smallest accepted value, -UNBOUNDED when open
	double			m_maximum;		///< largest accepted value, UNBOUNDED when open
};

} // namespace EM

#endif // EM_ModelParameterH
