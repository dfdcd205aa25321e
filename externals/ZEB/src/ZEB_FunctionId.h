#ifndef ZEB_FunctionIdH
#define ZEB_FunctionIdH

/*! Declares the local constant FUNC_ID that names the current function in messages and
	exceptions, as in FUNCID(DataIO::read) -> "[DataIO::read]".
*/
#define FUNCID(x) const char * const FUNC_ID = "[" #x "]"

#endif // ZEB_FunctionIdH
