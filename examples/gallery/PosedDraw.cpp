#include "PosedDraw.h"

namespace Gallery
{

using namespace Ostrel::GUI;

void CPosedDraw::DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter)
{
    CHeader const& header = *context.GetHeader();
    if (m_pose.hotFid != -1)
    {
        info.SetHotColumn(header.GetColumnByFid(m_pose.hotFid));
        info.SetCaptured(m_pose.isPressed);
    }
    if (m_pose.dropFid != -1)
    {
        info.SetDropColumn(header.GetColumnByFid(m_pose.dropFid));
        info.SetDropPosition(header.GetVirtualRect(context.GetGrid(), m_pose.dropFid).left);
    }
    CSpaciousDraw::DrawHeader(info, context, filter);
}

void CPosedDraw::DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter)
{
    CPaintContext const posed(context.GetGrid(), context.GetHeader(), context.GetClipRect(), context.GetDC(),
                              m_pose.drop, m_pose.rubberBand, context.GetFocusedContext(), context.GetFocusedRow(),
                              context.GetImageList(), context.GetStretchImage(), context.GetBackgroundImage(),
                              context.GetBackgroundImageRc());
    CSpaciousDraw::DrawLine(line, posed, filter);
}

} // namespace Gallery
