#ifndef EM_ManipulatorBaseH
#define EM_ManipulatorBaseH

#include <string>

namespace ZEB {
class UnitVector;
}

namespace EM {

/*! Base of all series manipulators: objects that change the values of an extracted series
	after it has been read from a container and before its units are converted.
	An extractor owns an ordered list of them and applies them in list order at every update.
*/
class ManipulatorBase {
public:
	/*! The manipulator kinds. */
	enum ManipulatorType {
		MT_2DScaling,
		MT_2DOffset,
		MT_2DDifference2First,
		NUM_MT
	};

	virtual ~ManipulatorBase();

	/*! The kind of the manipulator. */
	virtual ManipulatorType type() const = 0;
	/*! The type keyword under which the manipulator is stored and re-created, e.g. "2DScaling". */
	virtual const char * typeKeyword() const = 0;

	/*! The parameter as text (12 significant digits, general format); empty when there is none. */
	virtual std::string parameter() const = 0;
	/*! Sets the parameter from text; throws and keeps the old parameter when the text is invalid. */
	virtual void setFromParameter(const std::string & text) = 0;

	/*! Changes the series in place; x and y are the extractor's raw output series. */
	virtual void apply(ZEB::UnitVector & x, ZEB::UnitVector & y) const = 0;

	/*! The type keyword of a manipulator kind; an empty text for NUM_MT. */
	static const char * typeKeyword(ManipulatorType type);

protected:
	/*! A number in general format with 12 significant digits ("1.5", "1e-20"). */
	static std::string numberText(double value);
	/*! Reads the whole text as one finite floating-point number; throws "Invalid parameter,
		expected floating point number." with the given function id otherwise.
	*/
	static double parseNumber(const std::string & text, const char * functionId);
};

} // namespace EM

#endif // EM_ManipulatorBaseH
