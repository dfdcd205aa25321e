#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>

#include <pwd.h>
#include <unistd.h>

#include <ZEB_Exception.h>
#include <ZEB_Path.h>

#include "ZEB_TestSupport.h"

using ZEB::Path;

namespace {

/*! Changes into a directory for the lifetime of the object and back afterwards. */
class CurrentDirGuard {
public:
	explicit CurrentDirGuard(const std::filesystem::path & dir) : m_saved(std::filesystem::current_path()) {
		std::filesystem::current_path(dir);
	}
	~CurrentDirGuard() { std::filesystem::current_path(m_saved); }
private:
	std::filesystem::path m_saved;
};

std::filesystem::path scratchDir() {
	return std::filesystem::path(std::getenv("ORVANE_TEST_SCRATCH"));
}

} // namespace


TEST(ZEBPath, NormalisationRules) {
	// input, normalised form, drive, absolute
	const std::vector<std::tuple<std::string, std::string, std::string, bool> > cases = {
		{"a/b/../c",				"a/c",					"",		false},
		{"/a//b///c/",				"/a/b/c",				"",		true},
		{"./a/./b/.",				"a/b",					"",		false},
		{"a/../../b",				"../b",					"",		false},
		{"a/..",					".",					"",		false},
		{"/../a/../../b",			"/b",					"",		true},
		{"///a",					"/a",					"",		true},	// three slashes are no server name
		{"c:\\Data\\x\\",			"C:/Data/x",			"C:",	true},
		{"C:abc",					"C:/abc",				"C:",	true},
		{"d:/..",					"D:/",					"D:",	true},
		{"\\\\server\\share\\dir",	"//server/share/dir",	"",		true},
		{"//server/../..",			"//server",				"",		true},
		{"x/../c:/y",				"./c:/y",				"",		false},	// a drive-like component stays relative
		{"Ärger/Ölpreis/../ß.txt",	"Ärger/ß.txt",			"",		false},
	};
	for (const auto & c : cases) {
		const Path p(std::get<0>(c));
		EXPECT_EQ(p.str(), std::get<1>(c)) << "input: " << std::get<0>(c);
		EXPECT_EQ(Path(p.str()), p) << "normalising twice changes nothing: " << std::get<0>(c);
		EXPECT_EQ(p.drive(), std::get<2>(c)) << std::get<0>(c);
		EXPECT_EQ(p.isAbsolute(), std::get<3>(c)) << std::get<0>(c);
	}
	for (const Path & invalid : {Path(), Path(""), Path(static_cast<const char *>(nullptr)), Path(std::string("a\0b", 3))})
		EXPECT_FALSE(invalid.isValid());
	EXPECT_EQ(Path("c:/a"), Path("C:\\a\\"));
	EXPECT_NE(Path("/A"), Path("/a"));
	EXPECT_LT(Path("/a"), Path("/b"));
}


TEST(ZEBPath, RelativePathExamples) {
	// the generated pairs below cover the arithmetic; these fix the written form
	EXPECT_EQ(Path("/p/data/run1").relativePath("/p/project").str(), "../data/run1");
	EXPECT_EQ(Path("/p/project").relativePath("/p/project/").str(), ".");
	EXPECT_EQ(Path("C:\\x\\y").relativePath("c:/x/z").str(), "../y");
	// a component that looks like a drive stays relative
	EXPECT_EQ(Path("/p/c:x").relativePath("/p").str(), "./c:x");

	// relative paths resolve against the Linux current directory, which has no drive
	expectError([] { Path("a").relativePath("C:/x"); }, "Different drives.", "[Path::relativePath]");
	EXPECT_THROW(Path("//srv1/a").relativePath("//srv2/a"), ZEB::Exception);
	expectError([] { Path("").relativePath("/a"); }, "Invalid original path: ''", "[Path::relativePath]");
	EXPECT_THROW(Path("/a").relativePath(Path()), ZEB::Exception);
}


TEST(ZEBPath, RelativePathRoundTripsOverGeneratedPairs) {
	std::mt19937 rng(4711);
	const std::vector<std::string> roots = {"/", "C:/", "//srv/", "./"};	// relative paths start at the current directory
	const std::vector<std::string> names = {"a", "b", "data", "run1", "x.y", "Ärger", "c:d", "..x", "proj ect"};
	auto pick = [&](std::size_t n) { return static_cast<std::size_t>(rng() % n); };
	auto moreComponents = [&](std::vector<std::string> comps) {
		for (std::size_t k = pick(4); k > 0; --k)
			comps.push_back(names[pick(names.size())]);
		return comps;
	};
	// writes components with noise that normalisation must remove: ".", "name/..", doubled
	// and trailing separators, backslashes
	auto noisy = [&](const std::string & root, const std::vector<std::string> & comps) {
		std::string s = root;
		for (const std::string & c : comps) {
			s += pick(4) == 0 ? "./" : "";
			s += pick(5) == 0 ? names[pick(names.size())] + "/../" : "";
			s += c + (pick(3) == 0 ? "\\" : (pick(4) == 0 ? "//" : "/"));
		}
		return s;
	};

	for (int i = 0; i < 3000; ++i) {
		const std::string root = roots[pick(roots.size())];
		const std::vector<std::string> common = moreComponents({});
		const std::vector<std::string> fromComps = moreComponents(common);
		const std::vector<std::string> toComps = moreComponents(common);
		const Path from(noisy(root, fromComps));
		const Path to(noisy(root, toComps));
		const Path rel = from.relativePath(to);
		ASSERT_FALSE(rel.isAbsolute()) << from << " rel " << to;
		EXPECT_EQ(to.absolutePath() / rel, from.absolutePath()) << from << " rel " << to << " = " << rel;
		EXPECT_EQ(Path(rel.str()), rel);
	}
}


TEST(ZEBPath, ParentFilenameAndBranches) {
	// path, parent, file name
	const std::vector<std::tuple<const char *, const char *, const char *> > cases = {
		{"/a/b.txt", "/a", "b.txt"}, {"/a", "/", "a"}, {"C:/data/", "C:/", "data"}, {"//srv/a", "//srv", "a"},
		{"a", ".", "a"}, {"../a", "..", "a"}, {"x/c:y", "x", "./c:y"}};
	for (const auto & c : cases) {
		EXPECT_EQ(Path(std::get<0>(c)).parentPath().str(), std::get<1>(c));
		EXPECT_EQ(Path(std::get<0>(c)).filename().str(), std::get<2>(c));
	}
	for (const char * noParent : {"/", "C:/", "//srv", ".", "..", "../.."})
		expectError([&] { Path(noParent).parentPath(); }, "No parent possible.", "[Path::parentPath]");
	EXPECT_FALSE(Path("/").filename().isValid());

	const Path p("/a/b/c");
	ASSERT_EQ(p.branchCount(), 4u);
	EXPECT_EQ(p.subBranch(1, 2).str(), "a/b");
	expectError([&] { p.subBranch(0, 0); }, "Insufficient branches for given count.", "[Path::subBranch]");
	EXPECT_THROW(p.subBranch(4, 1), ZEB::Exception);
	EXPECT_THROW(p.subBranch(2, 3), ZEB::Exception);

	// splitting at any branch and joining again gives the path; the parent joined with the
	// file name, too
	for (const char * text : {"/a/b/c", "C:/x/y.z", "//srv/share/d", "../../a/b", "a", "x/c:y/z"}) {
		const Path q(text);
		const std::size_t n = q.branchCount();
		for (std::size_t k = 1; k < n; ++k)
			EXPECT_EQ(q.subBranch(0, k) / q.subBranch(k, n - k), q) << text << " split at " << k;
		EXPECT_EQ(q.subBranch(0, n), q);
		if (q.filename().str() != "..") {
			EXPECT_EQ(q.parentPath() / q.filename(), q) << text;
		}
	}
}


TEST(ZEBPath, ExtensionsAndJoining) {
	// path, extension, without extension
	const std::vector<std::tuple<const char *, const char *, const char *> > cases = {
		{"a.tar.gz", "gz", "a.tar"}, {"/x/.bashrc", "", "/x/.bashrc"}, {"x/a.", "", "x/a"}, {"dir.d/file", "", "dir.d/file"}};
	for (const auto & c : cases) {
		EXPECT_EQ(Path(std::get<0>(c)).extension(), std::get<1>(c));
		EXPECT_EQ(Path(std::get<0>(c)).withoutExtension().str(), std::get<2>(c));
	}
	EXPECT_EQ(Path("..").extension(), "");
	EXPECT_TRUE(Path("chart.PDF").hasExtension(".pdf"));	// case-insensitive, with or without the dot
	EXPECT_FALSE(Path("chart.pdf").hasExtension("pd"));
	EXPECT_EQ(Path("out/chart.png").withExtension(".svg").str(), "out/chart.svg");
	EXPECT_EQ(Path("out/chart.png").withExtension("").str(), "out/chart");
	expectError([] { Path("a/..").withExtension("svg"); }, "Path '.' has no file name.", "[Path::withExtension]");

	// joined, normalised; an absolute right-hand side replaces the left
	const std::vector<std::tuple<const char *, const char *, const char *> > joins = {
		{"/p/project", "../data/run1", "/p/data/run1"}, {"/p", "C:/x", "C:/x"}, {"C:/", "x", "C:/x"},
		{"//srv", "x", "//srv/x"}, {"/", "..", "/"}, {".", "..", ".."}, {"a", "./c:/x", "a/c:/x"}};
	for (const auto & j : joins)
		EXPECT_EQ((Path(std::get<0>(j)) / std::get<1>(j)).str(), std::get<2>(j));
	expectError([] { Path("a") / Path(std::string("b\0", 2)); }, "Other path argument is an empty/invalid path.", "[Path::operator/]");
	// an empty path is reported by every operation on it
	expectError([] { Path() / "a"; }, "Empty/invalid path.", "[Path::operator/]");
	for (const std::function<void()> & op : std::vector<std::function<void()> >{[] { Path().filename(); },
			[] { Path().subBranch(0, 1); }, [] { Path().withoutExtension(); }, [] { Path().hasExtension("a"); },
			[] { Path().exists(); }, [] { Path().isDirectory(); }, [] { Path().absolutePath(); }})
		EXPECT_THROW(op(), ZEB::Exception);
}



TEST(ZEBPath, FileSystemQueries) {
	const std::filesystem::path dir = scratchDir();
	std::ofstream(dir / std::filesystem::u8path("Ärger.txt")) << "x";
	const Path dirPath(dir.u8string());
	EXPECT_TRUE(dirPath.exists() && dirPath.isDirectory() && !dirPath.isFile());
	EXPECT_TRUE((dirPath / "Ärger.txt").isFile());
	EXPECT_FALSE((dirPath / "Ärger.txt").isDirectory());
	EXPECT_FALSE((dirPath / "missing").exists());
	// a relative path is looked up from the current directory
	CurrentDirGuard guard(dir);
	EXPECT_TRUE(Path("./sub/../Ärger.txt").isFile());
}


TEST(ZEBPath, CurrentAndAbsolutePath) {
	const std::string cwd = std::filesystem::current_path().string();
	EXPECT_EQ(Path::current(), Path(cwd));
	EXPECT_EQ(Path("x/../y").absolutePath(), Path(cwd) / "y");
	EXPECT_EQ(Path("/abs/x").absolutePath().str(), "/abs/x");
	// a limit exactly at the length of the directory is enough, one less is not
	ASSERT_GT(cwd.size(), 4u);
	EXPECT_EQ(Path::current(cwd.size()), Path::current());
	expectError([&] { Path::current(cwd.size() - 1); },
				"Path longer than " + std::to_string(cwd.size() - 1) + " characters", "[current()]");

	// a current directory that was deleted cannot be read; absolute paths need none
	const std::filesystem::path gone = scratchDir() / "gone";
	std::filesystem::create_directories(gone);
	CurrentDirGuard guard(gone);
	std::filesystem::remove(gone);
	EXPECT_THROW(Path::current(), ZEB::Exception);
	expectError([] { Path("rel").absolutePath(); }, "Cannot create absolute path.", "[Path::absolutePath]");
	EXPECT_THROW(Path("/a").relativePath("rel"), ZEB::Exception);
	EXPECT_EQ(Path("/a/b").relativePath("/a/c").str(), "../b");
}


TEST(ZEBPath, HomeDirectoryWithoutHomeVariable) {
	const char * saved = std::getenv("HOME");
	const std::string home = saved != nullptr ? saved : "";
	// without HOME the account entry decides
	unsetenv("HOME");
	const struct passwd * pw = getpwuid(getuid());
	if (pw != nullptr && pw->pw_dir != nullptr && *pw->pw_dir != 0)
		EXPECT_EQ(Path::home(), Path(pw->pw_dir));
	else
		expectError([] { Path::home(); }, "Couldn't deduce user directory.", "[Path::home]");
	if (saved != nullptr)
		setenv("HOME", home.c_str(), 1);
}

