#ifndef QPB_ValueTypeFactoryH
#define QPB_ValueTypeFactoryH

#include <map>
#include <memory>

#include <QString>

namespace QPB {

class ValueType;

/*! The process-wide registry of value types by id. It starts with the built-in types: "bool",
	"int", "double", "string", "enum", "color", "font", "pen", "datetime" and
	"coordinateIndex" (the ids are the ID constants of the type classes); further types are added
	with registerType().
*/
class ValueTypeFactory {
public:
	/*! The registry; created with the built-in types at first use. */
	static ValueTypeFactory & instance();

	/*! Adds a type; throws ZEB::Exception when its id is taken (properties refer to the types
		registered, so a type is never replaced).
	*/
	void registerType(std::unique_ptr<ValueType> type);
	/*! The type registered under id, or nullptr. */
	const ValueType * type(const QString & id) const;

private:
	ValueTypeFactory();

	std::map<QString, std::unique_ptr<ValueType>>	m_types;
};

} // namespace QPB

#endif // QPB_ValueTypeFactoryH
