#include "KOVIS/KOVISUtil/getRelativeFromRoot.h"

namespace kovis
{
namespace
{
// A trailing slash shows as a last element "." or "", which names nothing.
boost::filesystem::path normalise(const boost::filesystem::path& path)
{
    boost::filesystem::path normal = path.lexically_normal();
    while (!normal.empty() && (normal.filename() == "." || normal.filename().empty()) && normal.has_parent_path())
    {
        normal = normal.parent_path();
    }
    return normal;
}
} // namespace

boost::filesystem::path getRelativeFromRoot(const boost::filesystem::path& root, const boost::filesystem::path& path)
{
    const boost::filesystem::path normalRoot = normalise(root);
    const boost::filesystem::path normalPath = normalise(path);

    auto element = normalPath.begin();
    for (const auto& rootElement : normalRoot)
    {
        if (element == normalPath.end() || *element != rootElement)
        {
            return boost::filesystem::path();
        }
        ++element;
    }
    boost::filesystem::path relative;
    for (; element != normalPath.end(); ++element)
    {
        relative /= *element;
    }
    return relative;
}
} // namespace kovis
