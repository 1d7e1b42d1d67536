// Shows what is to be seen only while the mouse does something: a title under the pointer, a rubber band, rows and
// columns that are dragged.
#pragma once

#include <ostrel/GUI.h>

namespace Gallery
{

class CPosedDraw : public Ostrel::GUI::CSpaciousDraw
{
public:
    struct Pose
    {
        long hotFid = -1; ///< the title under the pointer
        bool isPressed = false;
        long dropFid = -1;  ///< a dragged column would go before this one
        CRect rubberBand{}; ///< in client pixels
        Ostrel::GUI::CDropPosition drop{};
    };

    explicit CPosedDraw(Pose const& pose) : CSpaciousDraw(true), m_pose(pose) {}

    // ICustomDraw
    void DrawHeader(Ostrel::GUI::CHeaderPaintInfo& info, Ostrel::GUI::CPaintContext const& context,
                    unsigned int filter) override;
    void DrawLine(Ostrel::GUI::CGridLine& line, Ostrel::GUI::CPaintContext const& context,
                  unsigned int filter) override;

private:
    Pose m_pose;
};

} // namespace Gallery
