#include <ostrel/platform/window/CmdTarget.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::~CCmdTarget() = default;
