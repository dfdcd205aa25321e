#include "ZEB_Path.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>
#include <ostream>

#ifdef _WIN32
#include <cwchar>
#include <direct.h>
#include "ZEB_WideString.h"
#else
#include <pwd.h>
#include <unistd.h>
#endif

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

const char * const EMPTY_PATH_MSG = "Empty/invalid path.";

inline bool isAsciiLetter(char c) {
	return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

inline char asciiToLower(char c) {
	return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

/*! True for a component that would be read as a drive at the start of a path ("c:", "c:x"). */
inline bool looksLikeDrive(const std::string & component) {
	return component.size() >= 2 && isAsciiLetter(component[0]) && component[1] == ':';
}

/*! Builds normalised text from a root ("", "/", "C:/" or "//server") and normalised
	components; see the class documentation of Path for the rules.
*/
std::string compose(const std::string & root, const std::vector<std::string> & components) {
	if (components.empty())
		return root.empty() ? std::string(".") : root;
	std::string text = root;
	if (!root.empty() && root.back() != '/')
		text += '/';
	else if (root.empty() && looksLikeDrive(components.front()))
		text = "./";
	for (std::size_t i = 0; i < components.size(); ++i) {
		if (i > 0)
			text += '/';
		text += components[i];
	}
	return text;
}

/*! Normalises path text lexically; see the class documentation of Path. */
std::string normalise(const std::string & text) {
	std::string s(text);
	std::replace(s.begin(), s.end(), '\\', '/');
	if (s.empty())
		return s;

	std::string root;
	std::size_t pos = 0;
	if (s.size() >= 2 && isAsciiLetter(s[0]) && s[1] == ':') {
		root = std::string(1, static_cast<char>(s[0] & ~0x20)) + ":/";
		pos = 2;
	}
	else if (s.size() >= 3 && s[0] == '/' && s[1] == '/' && s[2] != '/') {
		pos = std::min(s.find('/', 2), s.size());
		root = s.substr(0, pos);
	}
	else if (s[0] == '/') {
		root = "/";
		pos = 1;
	}

	std::vector<std::string> components;
	while (pos < s.size()) {
		const std::size_t end = std::min(s.find('/', pos), s.size());
		std::string component = s.substr(pos, end - pos);
		pos = end + 1;
		if (component.empty() || component == ".")
			continue;
		if (component == "..") {
			if (!components.empty() && components.back() != "..")
				components.pop_back();
			else if (root.empty())
				components.push_back(component);
			// else: ".." directly after a root stays at the root
			continue;
		}
		components.push_back(component);
	}
	return compose(root, components);
}

/*! The path made absolute against the current directory, without validity checks. */
Path makeAbsolute(const Path & p) {
	if (p.isAbsolute())
		return p;
	return Path::current() / p;
}

} // namespace


Path::Path(const std::string & path) :
	m_path(normalise(path))
{
}


Path::Path(const char * path) :
	m_path(normalise(path != nullptr ? std::string(path) : std::string()))
{
}


bool Path::isValid() const {
	return !m_path.empty() && m_path.find('\0') == std::string::npos;
}


std::string Path::drive() const {
	if (rootLength() == 3 && m_path[1] == ':')
		return m_path.substr(0, 2);
	return std::string();
}


std::size_t Path::branchCount() const {
	return (isAbsolute() ? 1 : 0) + components().size();
}


Path Path::subBranch(std::size_t start, std::size_t count) const {
	FUNCID(Path::subBranch);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::string root = m_path.substr(0, rootLength());
	std::vector<std::string> comps = components();
	const std::size_t n = comps.size() + (root.empty() ? 0 : 1);
	if (count == 0 || count > n)
		throw Exception("Insufficient branches for given count.", FUNC_ID);
	if (start >= n)
		throw Exception("Illegal index for branch start.", FUNC_ID);
	if (count > n - start)
		throw Exception("Start index or count too large.", FUNC_ID);

	if (!root.empty() && start == 0)
		return fromNormalised(compose(root, std::vector<std::string>(comps.begin(), comps.begin() + (count - 1))));
	const std::size_t first = start - (root.empty() ? 0 : 1);
	return fromNormalised(compose("", std::vector<std::string>(comps.begin() + first, comps.begin() + (first + count))));
}


Path Path::absolutePath() const {
	FUNCID(Path::absolutePath);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	try {
		return makeAbsolute(*this);
	}
	catch (Exception & ex) {
		throw Exception(ex, "Cannot create absolute path.", FUNC_ID);
	}
}


Path Path::relativePath(const Path & toPath) const {
	FUNCID(Path::relativePath);
	if (!isValid())
		throw Exception(MessageFormat("Invalid original path: '%1'").arg(m_path), FUNC_ID);
	if (!toPath.isValid())
		throw Exception(MessageFormat("Invalid to path: '%1'").arg(toPath.m_path), FUNC_ID);

	Path from;
	Path to;
	try {
		from = makeAbsolute(*this);
		to = makeAbsolute(toPath);
	}
	catch (Exception & ex) {
		throw Exception(ex, "Cannot create absolute path.", FUNC_ID);
	}
	if (from.m_path.compare(0, from.rootLength(), to.m_path, 0, to.rootLength()) != 0)
		throw Exception("Different drives.", FUNC_ID);

	const std::vector<std::string> fromComps = from.components();
	const std::vector<std::string> toComps = to.components();
	std::size_t common = 0;
	while (common < fromComps.size() && common < toComps.size() && fromComps[common] == toComps[common])
		++common;
	std::vector<std::string> relComps(toComps.size() - common, "..");
	relComps.insert(relComps.end(), fromComps.begin() + common, fromComps.end());
	const Path result = fromNormalised(compose("", relComps));

	// Joining the result to the base must lead back to this path; the project file relies on it.
	if (to / result != from)
		throw Exception("Error while creating final path", FUNC_ID);
	return result;
}


Path Path::parentPath() const {
	FUNCID(Path::parentPath);
	if (!isValid())
		throw Exception(MessageFormat("Invalid path: '%1'").arg(m_path), FUNC_ID);
	std::vector<std::string> comps = components();
	if (comps.empty() || comps.back() == "..")
		throw Exception("No parent possible.", FUNC_ID);
	comps.pop_back();
	return fromNormalised(compose(m_path.substr(0, rootLength()), comps));
}


Path Path::filename() const {
	FUNCID(Path::filename);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::vector<std::string> comps = components();
	if (comps.empty())
		return Path();
	return fromNormalised(compose("", std::vector<std::string>(1, comps.back())));
}


std::string Path::extension() const {
	FUNCID(Path::extension);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::size_t dotPos = extensionDotPos();
	return dotPos == std::string::npos ? std::string() : m_path.substr(dotPos + 1);
}


bool Path::hasExtension(const std::string & ext) const {
	FUNCID(Path::hasExtension);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::string wanted = (!ext.empty() && ext[0] == '.') ? ext.substr(1) : ext;
	const std::string own = extension();
	if (own.size() != wanted.size())
		return false;
	for (std::size_t i = 0; i < own.size(); ++i)
		if (asciiToLower(own[i]) != asciiToLower(wanted[i]))
			return false;
	return true;
}


Path Path::withoutExtension() const {
	FUNCID(Path::withoutExtension);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::size_t dotPos = extensionDotPos();
	return dotPos == std::string::npos ? *this : fromNormalised(m_path.substr(0, dotPos));
}


Path Path::withExtension(const std::string & ext) const {
	FUNCID(Path::withExtension);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	const std::vector<std::string> comps = components();
	if (comps.empty() || comps.back() == "..")
		throw Exception(MessageFormat("Path '%1' has no file name.").arg(m_path), FUNC_ID);
	const std::string newExt = (!ext.empty() && ext[0] == '.') ? ext.substr(1) : ext;
	const Path stem = withoutExtension();
	if (newExt.empty())
		return stem;
	return Path(stem.m_path + "." + newExt);
}


bool Path::exists() const {
	FUNCID(Path::exists);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	std::error_code ec;
	return std::filesystem::exists(std::filesystem::u8path(m_path), ec);
}


bool Path::isFile() const {
	FUNCID(Path::isFile);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	std::error_code ec;
	return std::filesystem::is_regular_file(std::filesystem::u8path(m_path), ec);
}


bool Path::isDirectory() const {
	FUNCID(Path::isDirectory);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	std::error_code ec;
	return std::filesystem::is_directory(std::filesystem::u8path(m_path), ec);
}


Path Path::operator/(const Path & other) const {
	FUNCID(Path::operator/);
	if (!isValid())
		throw Exception(EMPTY_PATH_MSG, FUNC_ID);
	if (!other.isValid())
		throw Exception("Other path argument is an empty/invalid path.", FUNC_ID);
	if (other.isAbsolute())
		return other;
	// roots "/" and "C:/" end in a separator already; "//server" and components do not
	std::string joined = m_path;
	if (joined.back() != '/')
		joined += '/';
	joined += other.m_path;
	return Path(joined);
}


Path & Path::operator/=(const Path & other) {
	*this = *this / other;
	return *this;
}


Path Path::current(std::size_t maxLength) {
	FUNCID(current());
	// the buffer grows until the directory fits or maxLength characters (plus terminator) fail
	std::size_t size = std::min<std::size_t>(256, maxLength + 1);
	for (;;) {
#ifdef _WIN32
		std::wstring buffer;
		try {
			buffer.resize(size);
		}
		catch (std::bad_alloc &) {
			throw Exception(MessageFormat("Out of memory! Can not reserve %1 bytes").arg(size * sizeof(wchar_t)), FUNC_ID);
		}
		if (_wgetcwd(&buffer[0], static_cast<int>(size)) != nullptr) {
			buffer.resize(std::wcslen(buffer.c_str()));
			try {
				return Path(WstringToUTF8(buffer));
			}
			catch (Exception & ex) {
				throw Exception(ex, "Cannot determine the current directory.", FUNC_ID);
			}
		}
#else
		std::string buffer;
		try {
			buffer.resize(size);
		}
		catch (std::bad_alloc &) {
			throw Exception(MessageFormat("Out of memory! Can not reserve %1 bytes").arg(size), FUNC_ID);
		}
		if (getcwd(&buffer[0], size) != nullptr)
			return Path(std::string(buffer.c_str()));
#endif
		if (errno != ERANGE)
			throw Exception(MessageFormat("Cannot determine the current directory: %1").arg(std::strerror(errno)), FUNC_ID);
		if (size > maxLength)
			throw Exception(MessageFormat("Path longer than %1 characters").arg(maxLength), FUNC_ID);
		size = std::min(2 * size, maxLength + 1);
	}
}


Path Path::home() {
	FUNCID(Path::home);
#ifdef _WIN32
	try {
		const wchar_t * profile = _wgetenv(L"USERPROFILE");
		if (profile != nullptr && *profile != 0)
			return Path(WstringToUTF8(profile));
		const wchar_t * homeDrive = _wgetenv(L"HOMEDRIVE");
		const wchar_t * homePath = _wgetenv(L"HOMEPATH");
		if (homeDrive != nullptr && homePath != nullptr && *homePath != 0)
			return Path(WstringToUTF8(std::wstring(homeDrive) + homePath));
	}
	catch (Exception & ex) {
		throw Exception(ex, "Couldn't deduce user directory.", FUNC_ID);
	}
#else
	const char * homeVar = std::getenv("HOME");
	if (homeVar != nullptr && *homeVar != 0)
		return Path(homeVar);
	long bufferSize = sysconf(_SC_GETPW_R_SIZE_MAX);
	std::string buffer(bufferSize > 0 ? static_cast<std::size_t>(bufferSize) : 16384, '\0');
	struct passwd entry;
	struct passwd * found = nullptr;
	if (getpwuid_r(getuid(), &entry, &buffer[0], buffer.size(), &found) == 0 && found != nullptr
		&& found->pw_dir != nullptr && *found->pw_dir != 0)
	{
		return Path(found->pw_dir);
	}
#endif
	throw Exception("Couldn't deduce user directory.", FUNC_ID);
}


std::size_t Path::rootLength() const {
	if (m_path.size() >= 3 && m_path[0] == '/' && m_path[1] == '/')
		return std::min(m_path.find('/', 2), m_path.size());
	if (!m_path.empty() && m_path[0] == '/')
		return 1;
	if (m_path.size() >= 3 && isAsciiLetter(m_path[0]) && m_path[1] == ':' && m_path[2] == '/')
		return 3;
	return 0;
}


std::vector<std::string> Path::components() const {
	std::vector<std::string> comps;
	std::size_t pos = rootLength();
	while (pos < m_path.size()) {
		const std::size_t end = std::min(m_path.find('/', pos), m_path.size());
		if (end > pos && m_path.compare(pos, end - pos, ".") != 0)
			comps.push_back(m_path.substr(pos, end - pos));
		pos = end + 1;
	}
	return comps;
}


Path Path::fromNormalised(const std::string & text) {
	Path p;
	p.m_path = text;
	return p;
}


std::size_t Path::extensionDotPos() const {
	const std::vector<std::string> comps = components();
	if (comps.empty())
		return std::string::npos;
	const std::string & name = comps.back();
	const std::size_t dot = name.rfind('.');
	// the dot must follow some character other than a dot: ".bashrc", ".." and "..x" have none
	if (dot == std::string::npos || name.find_first_not_of('.') > dot)
		return std::string::npos;
	return m_path.size() - name.size() + dot;
}


std::ostream & operator<<(std::ostream & out, const Path & p) {
	return out << p.str();
}

} // namespace ZEB
