#include "LinuxDisplay.h"

#include "XConnection.h"

#include <QImage>

#include <xcb/randr.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace tk {

namespace {

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};
template <class T> using Reply = std::unique_ptr<T, FreeDeleter>;

// Asks and reads in one go, dropping an error: nullptr means "no answer".
template <class R, class F, class C> Reply<R> answer(xcb_connection_t* c, F replyOf, C cookie) {
    xcb_generic_error_t* error = nullptr;
    Reply<R> reply(replyOf(c, cookie, &error));
    std::free(error);
    return reply;
}

bool rotatedSideways(uint16_t rotation) {
    return rotation & (XCB_RANDR_ROTATION_ROTATE_90 | XCB_RANDR_ROTATION_ROTATE_270);
}

using CrtcReply = Reply<xcb_randr_get_crtc_info_reply_t>;

// The crtc that shows the screen: the one of the primary output, else the first lit one.
xcb_randr_crtc_t mainCrtc(xcb_connection_t* c, xcb_window_t root,
                          const std::vector<xcb_randr_crtc_t>& crtcs,
                          const std::vector<CrtcReply>& infos) {
    auto primary = answer<xcb_randr_get_output_primary_reply_t>(
        c, xcb_randr_get_output_primary_reply, xcb_randr_get_output_primary(c, root));
    if (primary && primary->output != XCB_NONE) {
        auto output = answer<xcb_randr_get_output_info_reply_t>(
            c, xcb_randr_get_output_info_reply,
            xcb_randr_get_output_info(c, primary->output, XCB_CURRENT_TIME));
        if (output && output->crtc != XCB_NONE)
            return output->crtc;
    }
    for (size_t i = 0; i < crtcs.size(); ++i)
        if (infos[i] && infos[i]->mode != XCB_NONE)
            return crtcs[i];
    return XCB_NONE;
}

template <class ResourcesReply, class CrtcsOf, class LengthOf>
std::vector<CrtcReply> crtcInfos(xcb_connection_t* c, const ResourcesReply* resources,
                                 CrtcsOf crtcsOf, LengthOf lengthOf,
                                 std::vector<xcb_randr_crtc_t>& crtcs) {
    const xcb_randr_crtc_t* list = crtcsOf(resources);
    crtcs.assign(list, list + std::max(lengthOf(resources), 0));
    std::vector<xcb_randr_get_crtc_info_cookie_t> cookies;
    for (xcb_randr_crtc_t crtc : crtcs)
        cookies.push_back(xcb_randr_get_crtc_info(c, crtc, resources->config_timestamp));
    std::vector<CrtcReply> infos;
    for (auto cookie : cookies)
        infos.push_back(
            answer<xcb_randr_get_crtc_info_reply_t>(c, xcb_randr_get_crtc_info_reply, cookie));
    return infos;
}

} // namespace

LinuxDisplay::LinuxDisplay(QByteArray displayName)
    : m_x(std::make_unique<XConnection>(std::move(displayName))) {}

LinuxDisplay::~LinuxDisplay() = default;

DisplayMode LinuxDisplay::current() {
    xcb_connection_t* c = m_x->connection();
    if (!c)
        return DisplayMode{1024, 768, 32};
    DisplayMode mode{0, 0, m_x->rootBitsPerPixel()};
    if (m_x->hasRandr12()) {
        auto resources = answer<xcb_randr_get_screen_resources_current_reply_t>(
            c, xcb_randr_get_screen_resources_current_reply,
            xcb_randr_get_screen_resources_current(c, m_x->root()));
        if (resources) {
            std::vector<xcb_randr_crtc_t> crtcs;
            const std::vector<CrtcReply> infos =
                crtcInfos(c, resources.get(), xcb_randr_get_screen_resources_current_crtcs,
                          xcb_randr_get_screen_resources_current_crtcs_length, crtcs);
            const xcb_randr_crtc_t crtc = mainCrtc(c, m_x->root(), crtcs, infos);
            for (size_t i = 0; i < crtcs.size(); ++i)
                if (crtcs[i] == crtc && infos[i] && infos[i]->mode != XCB_NONE) {
                    mode.width = infos[i]->width;
                    mode.height = infos[i]->height;
                    return mode;
                }
        }
    }
    auto root = answer<xcb_get_geometry_reply_t>(c, xcb_get_geometry_reply,
                                                 xcb_get_geometry(c, m_x->root()));
    if (!root)
        return DisplayMode{1024, 768, 32};
    mode.width = root->width;
    mode.height = root->height;
    return mode;
}

bool LinuxDisplay::setMode(int width, int height, int /*depth*/) {
    if (width <= 0 || height <= 0 || width > 0x7fff || height > 0x7fff)
        return false;
    const DisplayMode now = current();
    if (now.width == width && now.height == height)
        return true;
    xcb_connection_t* c = m_x->connection();
    if (!c || !m_x->hasRandr12())
        return false;
    const xcb_window_t root = m_x->root();

    auto resources = answer<xcb_randr_get_screen_resources_reply_t>(
        c, xcb_randr_get_screen_resources_reply, xcb_randr_get_screen_resources(c, root));
    if (!resources)
        return false;
    std::vector<xcb_randr_crtc_t> crtcs;
    const std::vector<CrtcReply> infos =
        crtcInfos(c, resources.get(), xcb_randr_get_screen_resources_crtcs,
                  xcb_randr_get_screen_resources_crtcs_length, crtcs);
    const xcb_randr_crtc_t crtc = mainCrtc(c, root, crtcs, infos);
    const auto at = std::find(crtcs.begin(), crtcs.end(), crtc);
    if (at == crtcs.end() || !infos[size_t(at - crtcs.begin())])
        return false;
    const xcb_randr_get_crtc_info_reply_t& info = *infos[size_t(at - crtcs.begin())];
    const int outputCount = xcb_randr_get_crtc_info_outputs_length(&info);
    if (outputCount < 1)
        return false;
    const xcb_randr_output_t* outputs = xcb_randr_get_crtc_info_outputs(&info);

    // A mode of that size that every output of the crtc offers (in practice: the one output).
    const xcb_randr_mode_info_t* modes = xcb_randr_get_screen_resources_modes(resources.get());
    const int modeCount = xcb_randr_get_screen_resources_modes_length(resources.get());
    std::vector<xcb_randr_mode_t> offered;
    for (int o = 0; o < outputCount; ++o) {
        auto output = answer<xcb_randr_get_output_info_reply_t>(
            c, xcb_randr_get_output_info_reply,
            xcb_randr_get_output_info(c, outputs[o], resources->config_timestamp));
        if (!output)
            return false;
        const xcb_randr_mode_t* ids = xcb_randr_get_output_info_modes(output.get());
        std::vector<xcb_randr_mode_t> own(
            ids, ids + xcb_randr_get_output_info_modes_length(output.get()));
        if (o == 0)
            offered = own;
        else
            std::erase_if(offered, [&](xcb_randr_mode_t m) {
                return std::find(own.begin(), own.end(), m) == own.end();
            });
    }
    xcb_randr_mode_t chosen = XCB_NONE;
    for (xcb_randr_mode_t id : offered) {
        for (int m = 0; m < modeCount && chosen == XCB_NONE; ++m)
            if (modes[m].id == id && modes[m].width == width && modes[m].height == height)
                chosen = id;
        if (chosen != XCB_NONE)
            break;
    }
    if (chosen == XCB_NONE)
        return false;

    // The screen must hold every lit crtc: the changed one at its new size, the others as they are.
    const bool sideways = rotatedSideways(info.rotation);
    const int newW = sideways ? height : width;
    const int newH = sideways ? width : height;
    int finalW = info.x + newW;
    int finalH = info.y + newH;
    for (size_t i = 0; i < crtcs.size(); ++i)
        if (crtcs[i] != crtc && infos[i] && infos[i]->mode != XCB_NONE) {
            finalW = std::max(finalW, infos[i]->x + int(infos[i]->width));
            finalH = std::max(finalH, infos[i]->y + int(infos[i]->height));
        }
    auto range = answer<xcb_randr_get_screen_size_range_reply_t>(
        c, xcb_randr_get_screen_size_range_reply, xcb_randr_get_screen_size_range(c, root));
    auto geometry =
        answer<xcb_get_geometry_reply_t>(c, xcb_get_geometry_reply, xcb_get_geometry(c, root));
    if (!range || !geometry)
        return false;
    if (finalW > range->max_width || finalH > range->max_height)
        return false;
    finalW = std::max(finalW, int(range->min_width));
    finalH = std::max(finalH, int(range->min_height));
    const int oldW = geometry->width;
    const int oldH = geometry->height;

    // The physical size follows the pixels, so that the dots per inch stay as they were.
    const xcb_screen_t* screen = m_x->screen();
    auto millimetres = [&](int pixels, int oldPixels, int oldMm) -> uint32_t {
        if (oldMm > 0 && oldPixels > 0)
            return uint32_t(qint64(pixels) * oldMm / oldPixels);
        return uint32_t(pixels * 254 / 960); // 96 dots per inch
    };
    auto resize = [&](int w, int h) {
        const xcb_void_cookie_t cookie = xcb_randr_set_screen_size_checked(
            c, root, uint16_t(w), uint16_t(h), millimetres(w, oldW, screen->width_in_millimeters),
            millimetres(h, oldH, screen->height_in_millimeters));
        xcb_generic_error_t* error = xcb_request_check(c, cookie);
        std::free(error);
        return error == nullptr;
    };

    // Grow first where the new mode needs room, shrink only after the crtc has let go of it.
    const int growW = std::max(oldW, finalW);
    const int growH = std::max(oldH, finalH);
    if ((growW != oldW || growH != oldH) && !resize(growW, growH))
        return false;
    auto set = answer<xcb_randr_set_crtc_config_reply_t>(
        c, xcb_randr_set_crtc_config_reply,
        xcb_randr_set_crtc_config(c, crtc, XCB_CURRENT_TIME, resources->config_timestamp, info.x,
                                  info.y, chosen, info.rotation, uint32_t(outputCount), outputs));
    if (!set || set->status != XCB_RANDR_SET_CONFIG_SUCCESS) {
        if (growW != oldW || growH != oldH)
            resize(oldW, oldH);
        return false;
    }
    if (finalW != growW || finalH != growH)
        resize(finalW, finalH);
    return m_x->flush();
}

bool LinuxDisplay::setWallpaper(const QString& file) {
    xcb_connection_t* c = m_x->connection();
    if (!c)
        return false;
    const xcb_screen_t* screen = m_x->screen();
    const xcb_window_t root = m_x->root();
    if (file.isEmpty()) {
        const uint32_t zwart = screen->black_pixel;
        xcb_change_window_attributes(c, root, XCB_CW_BACK_PIXEL, &zwart);
        xcb_clear_area(c, 0, root, 0, 0, 0, 0);
        std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
        return true;
    }
    const QImage bron(file);
    if (bron.isNull() || screen->root_depth != 24 || m_x->rootBitsPerPixel() != 32)
        return false;
    // Stretched as the wallpaper style of the workstation asks, in the server's byte order.
    const QImage beeld = bron.scaled(screen->width_in_pixels, screen->height_in_pixels,
                                     Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_RGB32);
    const xcb_pixmap_t pixmap = xcb_generate_id(c);
    xcb_create_pixmap(c, 24, pixmap, root, uint16_t(beeld.width()), uint16_t(beeld.height()));
    const xcb_gcontext_t gc = xcb_generate_id(c);
    xcb_create_gc(c, gc, pixmap, 0, nullptr);
    // One request carries at most the server's maximum length: send the picture in strips.
    const qsizetype regel = beeld.bytesPerLine();
    const int perStrook =
        std::max(1, int((qsizetype(xcb_get_maximum_request_length(c)) * 4 - 64) / regel));
    for (int y = 0; y < beeld.height(); y += perStrook) {
        const int rijen = std::min(perStrook, beeld.height() - y);
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, gc, uint16_t(beeld.width()),
                      uint16_t(rijen), 0, int16_t(y), 0, 24, uint32_t(regel * rijen),
                      beeld.constScanLine(y));
    }
    xcb_change_window_attributes(c, root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(c, 0, root, 0, 0, 0, 0);
    xcb_free_gc(c, gc);
    // The server keeps the picture while it is the background.
    xcb_free_pixmap(c, pixmap);
    // A round trip: the screen shows it before this returns.
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    return true;
}

} // namespace tk
