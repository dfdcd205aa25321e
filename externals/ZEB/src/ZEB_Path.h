#ifndef ZEB_PathH
#define ZEB_PathH

#include <iosfwd>
#include <string>
#include <vector>

namespace ZEB {

/*! A file-system path, held as a UTF-8 string in a normalised form.

	The constructor normalises the text purely lexically (the file system is never asked):
	- Backslashes become forward slashes; '/' is the only separator afterwards, on every
	  platform (a file name can therefore not contain a backslash).
	- A root is recognised at the start and kept:
	  - a drive letter and colon, "c:" or "C:\", becomes the drive root "C:/" (letter in upper
	    case). This holds on every platform, so "C:/a" and "D:/a" are on different drives even
	    on Linux. A drive-relative form "C:abc" is read as "C:/abc".
	  - exactly two leading separators and a name, "//server/share" or "\\server\share", is a
	    network path whose root is "//server".
	  - one leading separator (or three and more) is the root "/".
	  A path with a root is absolute, any other path is relative.
	- Duplicate and trailing separators and "." components are dropped.
	- ".." removes the preceding named component ("a/b/../c" -> "a/c"). Directly after a root it
	  is dropped ("/.." -> "/"). At the start of a relative path it is kept ("../../a").
	  Symbolic links are not resolved, so "link/.." may differ from what the file system means.
	- A relative path without components is "."; an absolute one is its root alone.
	- A relative path whose first component looks like a drive ("c:x" written as "./c:x") keeps
	  a leading "./" so that the normalised text reads back as the same path.
	- An empty text gives the empty path, which is invalid; so is a path containing a NUL
	  character. Operations on an invalid path raise "Empty/invalid path." (or their own message
	  where one is noted).
	Comparison is by the normalised text, case-sensitive except for the drive letter.

	Branches are the parts of a path: the root (if any) and then each component, so "/a/b" has
	the branches "/", "a" and "b", "C:/x" has "C:/" and "x", "../a" has ".." and "a", and "." has
	none.

	Relative paths round-trip: for absolute paths p and base on the same drive,
	base / p.relativePath(base) == p. A project stores its data directories this way, relative
	to the folder of the project file.
*/
class Path {
public:
	/*! Longest current directory, in characters, that current() reads by default (the longest
		path the Windows wide-character API handles).
	*/
	static constexpr std::size_t MAX_PATH_LENGTH = 32767;

	/*! The empty, invalid path. */
	Path() = default;
	/*! A path from UTF-8 text, normalised as described in the class documentation. */
	Path(const std::string & path);
	Path(const char * path);

	/*! The normalised UTF-8 text with '/' separators. */
	const std::string & str() const { return m_path; }

	/*! Not empty and free of NUL characters. */
	bool isValid() const;
	/*! True for paths with a root ("/", "C:/", "//server"). */
	bool isAbsolute() const { return rootLength() != 0; }
	/*! The drive, e.g. "C:", or an empty string when the path has no drive letter. */
	std::string drive() const;

	/*! Number of branches (root and components, see class documentation); 0 for the empty path. */
	std::size_t branchCount() const;
	/*! Path made of count branches beginning at branch start; it is absolute when it includes the
		root. count must be at least 1 and start + count at most branchCount().
	*/
	Path subBranch(std::size_t start, std::size_t count) const;

	/*! This path if absolute, else the current directory joined with it. */
	Path absolutePath() const;
	/*! The path that leads from toPath (a directory) to this one, e.g. "/p/data/run1" relative
		to "/p/project" is "../data/run1". Relative arguments are made absolute against the
		current directory first. Identical paths give ".". Fails when the two paths are on
		different drives (or network roots).
	*/
	Path relativePath(const Path & toPath) const;
	/*! The path without its last component ("a" gives "."). A root, "." and a path ending in
		".." have no parent that can be told without the file system.
	*/
	Path parentPath() const;
	/*! The last component; for a bare root or "." the empty path. */
	Path filename() const;

	/*! Text after the last dot of the file name, without the dot; empty when the name has no
		dot or only dots precede its last dot (".bashrc", "..", "..x").
	*/
	std::string extension() const;
	/*! True when extension() equals ext, ignoring ASCII case and a leading dot of ext. */
	bool hasExtension(const std::string & ext) const;
	/*! The path with the extension and its dot removed from the file name ("a.tar.gz" -> "a.tar";
		"a." -> "a").
	*/
	Path withoutExtension() const;
	/*! The path with its extension replaced by ext (a leading dot of ext is optional; an empty
		ext removes the extension). Fails when the path has no file name.
	*/
	Path withExtension(const std::string & ext) const;

	/*! True when the file system has an entry of this name (any type). */
	bool exists() const;
	/*! True when the path names a regular file (symbolic links followed). */
	bool isFile() const;
	/*! True when the path names a directory (symbolic links followed). */
	bool isDirectory() const;

	/*! Joins two paths: "a/b" / "../c" is "a/c". An absolute right-hand side replaces the left
		one, so a directory stored absolute (e.g. on another drive) survives joining with the
		project folder.
	*/
	Path operator/(const Path & other) const;
	Path & operator/=(const Path & other);

	bool operator==(const Path & other) const { return m_path == other.m_path; }
	bool operator!=(const Path & other) const { return m_path != other.m_path; }
	bool operator<(const Path & other) const { return m_path < other.m_path; }

	/*! The current working directory; fails when it cannot be read or is longer than maxLength
		characters.
	*/
	static Path current(std::size_t maxLength = MAX_PATH_LENGTH);
	/*! The user's home directory: HOME (Windows: USERPROFILE, then HOMEDRIVE and HOMEPATH),
		else (Unix) the home directory of the user's account entry.
	*/
	static Path home();

private:
	/*! Length of the root at the start of the normalised text; 0 for relative paths. */
	std::size_t rootLength() const;
	/*! The components after the root (no ".", see class documentation). */
	std::vector<std::string> components() const;
	/*! A path whose text is already normalised (skips normalisation, which would read a
		component like "c:" as a drive).
	*/
	static Path fromNormalised(const std::string & text);
	/*! Index of the extension's dot in m_path, or npos when the file name has no extension. */
	std::size_t extensionDotPos() const;

	std::string	m_path;
};

/*! Writes the normalised text. */
std::ostream & operator<<(std::ostream & out, const Path & p);

} // namespace ZEB

#endif // ZEB_PathH
