/// @file
/// Image lists: pictures of one size side by side, drawn by their index.
#pragma once

#include <ostrel/platform/drawing/Bitmap.h>

class CDC;

///@{
/// What an image list holds. Accepted and without meaning here: every image has 32 bits a pixel with its transparency.
inline constexpr UINT ILC_COLOR = 0x0000;
inline constexpr UINT ILC_MASK = 0x0001;
inline constexpr UINT ILC_COLOR32 = 0x0020;
///@}

///@{
/// How an image is drawn.
inline constexpr UINT ILD_NORMAL = 0x0000;
inline constexpr UINT ILD_TRANSPARENT = 0x0001;
inline constexpr UINT ILD_BLEND25 = 0x0002;
inline constexpr UINT ILD_BLEND50 = 0x0004;
///@}

/// Where an image lies in the bitmap of its list.
struct IMAGEINFO
{
    HBITMAP hbmImage; ///< the bitmap of the list
    HBITMAP hbmMask;  ///< always null
    int Unused1;      ///< not used
    int Unused2;      ///< not used
    RECT rcImage;     ///< the image in that bitmap
};

/// Pictures of one size, drawn by their number.
class OSTREL_PLATFORM_API CImageList
{
public:
    CImageList() noexcept = default;
    CImageList(CImageList const&) = delete;
    CImageList& operator=(CImageList const&) = delete;

    /// An empty list of images of one size. The counts are hints. FALSE when a side is 0 or negative or above 1024.
    BOOL Create(int width, int height, UINT flags, int initialCount, int growBy);
    /// Gives up all images. FALSE when there was no list.
    BOOL DeleteImageList();
    /// True between Create and DeleteImageList.
    [[nodiscard]] bool IsCreated() const noexcept { return m_width > 0; }

    /// Adds a strip of images (as many as fit whole into its width). Pixels of the mask colour become transparent;
    /// CLR_NONE masks nothing, CLR_DEFAULT takes the colour of the strip's first pixel. Copies. Returns the index of
    /// the first new image, -1 when nothing was added.
    int Add(CBitmap* strip, COLORREF maskColor);
    /// Removes one image; those behind it take lower numbers. FALSE when there is no such image.
    BOOL Remove(int index);

    /// How many images there are.
    [[nodiscard]] int GetImageCount() const noexcept;
    /// FALSE when there is no such image. hbmMask is null: transparency lies in the pixels.
    BOOL GetImageInfo(int index, IMAGEINFO* info) const noexcept;
    /// Width and height of each image; 0 by 0 without a list.
    [[nodiscard]] CSize GetImageSize() const noexcept { return {m_width, m_height}; }

    /// Draws one image with its transparency; with ILD_NORMAL over the list's background colour if it has one. FALSE
    /// when there is no such image.
    BOOL Draw(CDC* dc, int index, POINT at, UINT style) const;
    /// The same for the part of the image that lies in the size, over `background`: CLR_NONE for
    /// none, CLR_DEFAULT for what Draw does.
    BOOL DrawEx(CDC* dc, int index, POINT at, SIZE size, COLORREF background, COLORREF foreground, UINT style) const;

    /// What lies behind an image that is drawn with ILD_NORMAL. CLR_NONE (the beginning) for transparent. Returns the
    /// previous colour.
    COLORREF SetBkColor(COLORREF color) noexcept;
    /// That colour.
    [[nodiscard]] COLORREF GetBkColor() const noexcept { return m_background; }

private:
    CBitmap m_strip;
    int m_count = 0;
    int m_width = 0;
    int m_height = 0;
    COLORREF m_background = CLR_NONE;
};
