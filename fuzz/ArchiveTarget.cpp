// Reads texts, classes and objects from an archive. The objects refer to each other, also in circles.
#include <set>

#include <ostrel/Common.h>

#include "Target.h"

namespace
{

class CNode;
std::set<CNode*> g_nodes; ///< those that live: whoever reads a number again is not its owner

class CNode : public CObject
{
    DECLARE_SERIAL(CNode)
public:
    CNode() { g_nodes.insert(this); }
    ~CNode() override { g_nodes.erase(this); }

    void Serialize(CArchive& archive) override
    {
        archive >> m_text;
        archive >> m_next;
    }

private:
    CString m_text;
    CNode* m_next = nullptr;
};
IMPLEMENT_SERIAL(CNode, CObject, 1)

std::size_t ReadKind(CArchive& archive, unsigned kind)
{
    CString text;
    std::string stlText;
    switch (kind % 5)
    {
    case 0:
        archive >> text;
        return static_cast<std::size_t>(text.GetLength());
    case 1:
        archive >> stlText;
        return stlText.size();
    case 2: {
        UINT schema = 0;
        archive.ReadClass(nullptr, &schema);
        return 0;
    }
    case 3:
        static_cast<void>(archive.ReadObject());
        return 0;
    default:
        static_cast<void>(archive.ReadObject(RUNTIME_CLASS(CNode)));
        return 0;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CMemFile file({data, size});
    std::size_t textBytes = 0;
    try
    {
        CArchive archive(&file, CArchive::load);
        for (std::size_t i = 0; i < size; ++i)
        {
            textBytes += ReadKind(archive, data[i]);
        }
    }
    catch (CException* exception)
    {
        exception->Delete();
    }
    Fuzz::Require(textBytes <= size, "texts are not longer than the input");
    while (!g_nodes.empty())
    {
        delete *g_nodes.begin();
    }
    return 0;
}
