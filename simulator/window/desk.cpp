#include "window/desk.hpp"

#include "apple/uikit/pasteboard.hpp"
#include "driver/session.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/clock.hpp"
#include "script/text.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/drawing.hpp"
#include "uikit/text_input.hpp"
#include "uikit/view_geometry.hpp"
#include "window/fingers.hpp"
#include "window/frames.hpp"
#include "window/panel_look.hpp"
#include "window/phone_picture.hpp"
#include "window/side_panel.hpp"
#include "window/typing.hpp"

#include <SDL.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace sim::window {
namespace {

// Window pixels at the panel's scale.
constexpr double kAround = 18; // between phone, panel and the window's edges
constexpr double kCase = 9;    // of the phone, around its screen
constexpr Rgba kTable{0.8, 0.82, 0.85, 1};
constexpr Rgba kCaseColor{0.07, 0.07, 0.08, 1};
constexpr int kSlowest = 100; // milliseconds that pass on the phone in one frame, however long it took
constexpr double kLeastPhoneScale = 0.25;

struct KeyOf {
    SDL_Keycode code;
    EditKey key;
};

constexpr KeyOf kKeys[] = {
    {SDLK_RETURN, EditKey::kReturn}, {SDLK_KP_ENTER, EditKey::kReturn}, {SDLK_BACKSPACE, EditKey::kBackspace},
    {SDLK_DELETE, EditKey::kDelete}, {SDLK_LEFT, EditKey::kLeft},       {SDLK_RIGHT, EditKey::kRight},
    {SDLK_HOME, EditKey::kHome},     {SDLK_END, EditKey::kEnd},         {SDLK_ESCAPE, EditKey::kHideKeyboard}};

class Desk {
  public:
    Desk(SdlWindow &window, driver::Session &session, const WindowOptions &options, const Texts &texts)
        : window_(window), options_(options), texts_(texts), run_(session), fingers_(run_), typing_(run_),
          panel_(run_, options.phone.host, texts, [this] { Save(); }) {}

    int Run() {
        Begin();
        while (!closed_) {
            const AutoreleasePool pool;
            Frame();
        }
        return End();
    }

  private:
    /// The phone runs up to its first picture, then the window opens around it.
    void Begin() {
        const AutoreleasePool pool;
        if (!options_.screen.empty()) {
            run_.Do("setup screen " + options_.screen);
            if (!run_.complaint().empty()) {
                throw driver::UsageError("--screen: " + run_.complaint());
            }
        }
        if (!options_.first.empty()) {
            run_.DoAll(options_.first);
        }
        run_.Pass(0);
        const PixelRect room = SdlWindow::Room();
        const cg::Size screen = ScreenSize();
        constexpr double kTitleBar = 40; // of the window, which is not known before it is open
        const double fits = std::min((room.height - kTitleBar - 2 * (kAround + kCase)) / screen.height,
                                     (room.width - kPanelWidth - 2 * (kAround + kCase)) / screen.width);
        // Whole pixels a point look sharpest; a phone that has no room for one is shown smaller.
        scale_ = options_.scale > 0 ? options_.scale : fits >= 1 ? std::floor(fits) : std::max(fits, kLeastPhoneScale);
        const cg::Size size = SizeFor(scale_);
        window_.Open("Corvel: " + options_.phone.host, static_cast<int>(size.width), static_cast<int>(size.height),
                     static_cast<int>(kPanelWidth + 240), static_cast<int>(kLeastPanelHeight));
        LayOut();
        start_ = SDL_GetTicks64();
        last_ = start_;
    }

    int End() {
        SDL_StopTextInput();
        if (options_.countsFrames) {
            std::printf("frames due %lld drawn %lld\n", static_cast<long long>(frames_.due()),
                        static_cast<long long>(frames_.drawn()));
        }
        if (options_.checksDrawing) {
            std::printf("pictures checked %ld wrong %ld\n", checked_, wrong_);
        }
        return run_.hasEnded() ? 3 : 0;
    }

    /// How large the window is for the phone at a scale.
    static cg::Size SizeFor(double scale) {
        const double panel = std::max(scale, 1.0);
        const cg::Size screen = ScreenSize();
        const double around = 2 * (kAround + kCase) * panel;
        return {std::ceil(screen.width * scale + around + kPanelWidth * panel),
                std::ceil(std::max(screen.height * scale + around, kLeastPanelHeight * panel))};
    }

    /// Puts the phone in the middle beside the panel, as large as there is room.
    void LayOut() {
        const double width = window_.width();
        const double height = window_.height();
        screen_ = ScreenSize();
        const double panel =
            std::clamp(std::min(height / kLeastPanelHeight, width / (2 * kPanelWidth)), 1.0, std::max(scale_, 1.0));
        const double around = 2 * (kAround + kCase) * panel;
        const double room = width - kPanelWidth * panel;
        const double fits = std::min((room - around) / screen_.width, (height - around) / screen_.height);
        // A hair too little room must not cost the sharpness of whole pixels.
        const double scale = std::abs(fits - std::round(fits)) < 0.01 ? std::round(fits) : fits;
        picture_.SetScale(std::max(scale, kLeastPhoneScale));
        const PixelSize size = SizeIn(picture_.scale());
        phone_ = {{std::floor((room - size.width) / 2), std::floor((height - size.height) / 2)},
                  {static_cast<double>(size.width), static_cast<double>(size.height)}};
        case_ = kCase * panel;
        panel_.Place({{room, 0}, {width - room, height}}, panel);
        DrawTable();
        if (options_.tellsPlaces) {
            TellPlaces();
        }
    }

    void TellPlaces() const {
        const auto tell = [](const std::string &what, cg::Rect place) {
            std::printf("place %s %.0f %.0f %.0f %.0f\n", what.c_str(), place.origin.x, place.origin.y,
                        place.size.width, place.size.height);
        };
        tell("phone", phone_);
        for (const PanelButton &button : panel_.buttons()) {
            tell(button.name, panel_.PixelsOf(button));
        }
    }

    /// Everything that is neither the phone's screen nor the panel.
    void DrawTable() {
        const Context context(cairo_create(window_.image()));
        SetPaint(context.get(), kTable);
        cairo_paint(context.get());
        SetPaint(context.get(), kCaseColor);
        FillRounded(context.get(), Grown(phone_, case_), CornerRadius() + case_);
        tableDrawn_ = true;
    }

    /// Of the phone's screen: one without a home button has round corners.
    double CornerRadius() const {
        const double longer = std::max(screen_.width, screen_.height);
        const double shorter = std::min(screen_.width, screen_.height);
        constexpr double kRound = 44; // points
        return longer > 2 * shorter ? kRound * picture_.scale() : 0;
    }

    void Frame() {
        const std::uint64_t begin = SDL_GetTicks64();
        const bool happened = HandleEvents();
        const auto passed = static_cast<int>(std::min<std::uint64_t>(begin - last_, kSlowest));
        last_ = begin;
        fingers_.Frame(passed);
        run_.Pass(passed);
        const std::uint64_t work = clock::WorkDone();
        const bool codeRan = happened || fingers_.AreMoving() || work != std::exchange(workDone_, work);
        Follow(codeRan);
        const bool drawn = Draw(codeRan);
        const auto number = static_cast<std::int64_t>((begin - start_) * Frames::kPerSecond / 1000);
        frames_.Over(number, drawn);
        std::fflush(stdout);
        WaitForFrame(number + 1);
    }

    void WaitForFrame(std::int64_t number) const {
        const std::uint64_t due =
            start_ + static_cast<std::uint64_t>((number * 1000 + Frames::kPerSecond - 1) / Frames::kPerSecond);
        // The clock that sleeps and the clock that counts differ by a hair, so that one sleep may be too short.
        for (std::uint64_t now = SDL_GetTicks64(); now < due; now = SDL_GetTicks64()) {
            SDL_Delay(static_cast<Uint32>(due - now));
        }
    }

    /// What lies beside the phone follows what happens on it.
    void Follow(bool codeRan) {
        if (!run_.complaint().empty()) {
            panel_.Say(run_.complaint());
            if (run_.hasEnded() && !endTold_) {
                std::fprintf(stderr, "corvel-window: %s\n", run_.complaint().c_str());
                endTold_ = true;
            } else if (!run_.hasEnded()) {
                run_.Forgive();
            }
        }
        refreshDue_ = refreshDue_ || codeRan;
        constexpr std::uint64_t kReading = 100; // milliseconds: nobody reads faster, and a log is long
        if (refreshDue_ && last_ >= refreshed_ + kReading) {
            panel_.Refresh();
            refreshed_ = last_;
            refreshDue_ = false;
        }
        if (!codeRan) {
            return;
        }
        FollowEditing();
        FollowPasteboard();
        if (ScreenSize() != screen_) {
            const cg::Size size = SizeFor(scale_);
            const PixelRect room = SdlWindow::Room();
            window_.AskFor(std::min(static_cast<int>(size.width), room.width),
                           std::min(static_cast<int>(size.height), room.height));
            window_.FollowSize();
            LayOut();
        }
    }

    /// The computer's input method works while a text is being edited, beside it.
    void FollowEditing() {
        const ui::View edited = EditedView();
        if (static_cast<bool>(edited) != (SDL_IsTextInputActive() == SDL_TRUE)) {
            edited ? SDL_StartTextInput() : SDL_StopTextInput();
            composed_.clear();
        }
        if (edited) {
            const cg::Rect place = ConvertRect(edited.bounds(), edited, nullptr);
            const double scale = picture_.scale();
            editing_ = {{phone_.origin.x + place.origin.x * scale, phone_.origin.y + place.origin.y * scale},
                        {place.size.width * scale, place.size.height * scale}};
            const SDL_Rect rect{static_cast<int>(editing_.origin.x), static_cast<int>(editing_.origin.y),
                                static_cast<int>(editing_.size.width), static_cast<int>(editing_.size.height)};
            SDL_SetTextInputRect(&rect);
        }
    }

    /// What is copied on the phone can be pasted on the computer.
    void FollowPasteboard() {
        const long copies = CopiesSoFar();
        const ns::String text = ui::Pasteboard::generalPasteboard().string();
        if (std::exchange(copies_, copies) != copies && text) {
            SDL_SetClipboardText(script::TextOf(text).c_str());
        }
    }

    static long CopiesSoFar() {
        return objc::Send<"changeCount", long>(ui::Pasteboard::generalPasteboard());
    }

    bool Draw(bool codeRan) {
        std::vector<PixelRect> parts;
        run_.Watch([&] { DrawPhone(codeRan, parts); });
        const Context context(cairo_create(window_.image()));
        panel_.Draw(context.get(), parts);
        if (std::exchange(tableDrawn_, false)) {
            parts = {{0, 0, window_.width(), window_.height()}};
        }
        if (parts.empty()) {
            return false;
        }
        window_.Show(parts);
        return true;
    }

    void DrawPhone(bool codeRan, std::vector<PixelRect> &parts) {
        const Region changed = picture_.Update(codeRan);
        const bool recomposed = composed_ != drawnComposed_;
        if (tableDrawn_ || recomposed) {
            const cairo_rectangle_int_t all{0, 0, static_cast<int>(phone_.size.width),
                                            static_cast<int>(phone_.size.height)};
            cairo_region_union_rectangle(changed.get(), &all);
        }
        if (cairo_region_is_empty(changed.get()) != 0) {
            return;
        }
        if (options_.checksDrawing) {
            ++checked_;
            wrong_ += picture_.IsTrue() ? 0 : 1;
        }
        const Context context(cairo_create(window_.image()));
        cairo_translate(context.get(), phone_.origin.x, phone_.origin.y);
        for (int i = 0; i < cairo_region_num_rectangles(changed.get()); ++i) {
            cairo_rectangle_int_t box;
            cairo_region_get_rectangle(changed.get(), i, &box);
            cairo_rectangle(context.get(), box.x, box.y, box.width, box.height);
            parts.push_back({box.x + static_cast<int>(phone_.origin.x), box.y + static_cast<int>(phone_.origin.y),
                             box.width, box.height});
        }
        cairo_clip(context.get());
        cairo_set_source_surface(context.get(), picture_.image(), 0, 0);
        cairo_paint(context.get());
        if (TouchesCorner(changed.get())) {
            DrawCorners(context.get());
        }
        drawnComposed_ = composed_;
        if (!composed_.empty()) {
            DrawComposed(context.get());
        }
    }

    /// Whether any of the pixels lies near a round corner of the screen. Shapes as large as the screen take long to
    /// draw.
    bool TouchesCorner(const cairo_region_t *pixels) const {
        const int radius = static_cast<int>(std::ceil(CornerRadius()));
        const int right = static_cast<int>(phone_.size.width) - radius;
        const int bottom = static_cast<int>(phone_.size.height) - radius;
        const cairo_rectangle_int_t corners[] = {{0, 0, radius, radius},
                                                 {right, 0, radius, radius},
                                                 {0, bottom, radius, radius},
                                                 {right, bottom, radius, radius}};
        return std::ranges::any_of(corners, [pixels](const cairo_rectangle_int_t &corner) {
            return cairo_region_contains_rectangle(pixels, &corner) != CAIRO_REGION_OVERLAP_OUT;
        });
    }

    /// What is seen past the round corners of the screen: the case, and what it lies on.
    void DrawCorners(cairo_t *context) const {
        const double radius = CornerRadius();
        if (radius <= 0) {
            return;
        }
        const cg::Rect screen{{}, phone_.size};
        cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
        AddRounded(context, screen, 0);
        AddRounded(context, screen, radius);
        SetPaint(context, kTable);
        cairo_fill(context);
        AddRounded(context, Grown(screen, case_), radius + case_);
        AddRounded(context, screen, radius);
        SetPaint(context, kCaseColor);
        cairo_fill(context);
        cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
    }

    /// What the input method has not finished yet, below the text that it will go into.
    void DrawComposed(cairo_t *context) const {
        const double scale = panel_.scale();
        cairo_save(context);
        cairo_translate(
            context, std::max(editing_.origin.x - phone_.origin.x, 0.0),
            std::clamp(editing_.origin.y - phone_.origin.y + 30 * scale, 0.0, phone_.size.height - 30 * scale));
        cairo_scale(context, scale, scale);
        const cg::Rect box{{6, 0}, {std::max(phone_.size.width / scale - 40, 60.0), 26}};
        SetPaint(context, kBoxColor);
        FillRounded(context, box, 5);
        DrawText(context, composed_, kPanelFace, kChosenColor, Grown(box, -3));
        cairo_restore(context);
    }

    /// Everything that the computer has to tell; whether any of it reached the phone or the panel.
    bool HandleEvents() {
        bool happened = false;
        SDL_Event event;
        while (!closed_ && SDL_PollEvent(&event) == 1) {
            // Of many movements the last one counts.
            if (event.type == SDL_MOUSEMOTION) {
                SDL_Event next;
                while (SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
                       next.type == SDL_MOUSEMOTION) {
                    SDL_PollEvent(&event);
                }
            }
            happened = Handle(event) || happened;
        }
        return happened;
    }

    bool Handle(const SDL_Event &event) {
        switch (event.type) {
        case SDL_QUIT:
            closed_ = true;
            return true;
        case SDL_WINDOWEVENT:
            return HandleWindow(event.window);
        case SDL_MOUSEBUTTONDOWN:
            return event.button.button == SDL_BUTTON_LEFT && Press(PointOf(event.button));
        case SDL_MOUSEBUTTONUP:
            if (event.button.button == SDL_BUTTON_LEFT) {
                fingers_.Lift(OnPhone(PointOf(event.button)));
                panel_.Release(PointOf(event.button));
            }
            return true;
        case SDL_MOUSEMOTION:
            mouse_ = PointOf(event.motion);
            fingers_.Move(OnPhone(mouse_));
            return fingers_.AreDown();
        case SDL_MOUSEWHEEL:
            return Turn(event.wheel);
        case SDL_TEXTINPUT:
            composed_.clear();
            typing_.Enter(event.text.text);
            return true;
        case SDL_TEXTEDITING:
            composed_ = event.edit.text;
            return true;
        case SDL_KEYDOWN:
            modifiers_ = event.key.keysym.mod;
            return composed_.empty() && Type(event.key.keysym);
        case SDL_KEYUP:
            modifiers_ = event.key.keysym.mod;
            return false;
        default:
            return false;
        }
    }

    bool HandleWindow(const SDL_WindowEvent &event) {
        if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
            if (window_.FollowSize()) {
                LayOut();
            }
        } else if (event.event == SDL_WINDOWEVENT_EXPOSED) {
            const PixelRect all{0, 0, window_.width(), window_.height()};
            window_.Show({&all, 1});
        }
        return false;
    }

    template <class Event> static cg::Point PointOf(const Event &event) {
        return {static_cast<double>(event.x), static_cast<double>(event.y)};
    }

    cg::Point OnPhone(cg::Point pixel) const {
        return {(pixel.x - phone_.origin.x) / picture_.scale(), (pixel.y - phone_.origin.y) / picture_.scale()};
    }

    bool Press(cg::Point pixel) {
        if (panel_.Holds(pixel)) {
            panel_.Press(pixel);
        } else if (Contains(phone_, pixel)) {
            fingers_.Press(OnPhone(pixel), (modifiers_ & (KMOD_CTRL | KMOD_ALT)) != 0);
        }
        return true;
    }

    bool Turn(const SDL_MouseWheelEvent &event) {
        constexpr double kPointsALine = 48;
        constexpr double kTextsALine = 3;
        if (panel_.Holds(mouse_)) {
            panel_.Scroll(mouse_, event.preciseY * kTextsALine);
        } else if (Contains(phone_, mouse_)) {
            fingers_.Scroll(OnPhone(mouse_), event.preciseY * kPointsALine);
        }
        return true;
    }

    bool Type(const SDL_Keysym &pressed) {
        if ((pressed.mod & KMOD_CTRL) != 0) {
            return Command(pressed.sym);
        }
        const auto *const key = std::ranges::find(kKeys, pressed.sym, &KeyOf::code);
        if (key != std::end(kKeys)) {
            typing_.Press(key->key);
        }
        return key != std::end(kKeys);
    }

    bool Command(SDL_Keycode key) {
        switch (key) {
        case SDLK_a:
            typing_.Press(EditKey::kSelectAll);
            return true;
        case SDLK_c:
        case SDLK_x:
            typing_.Copy(key == SDLK_x);
            FollowPasteboard(); // a paste may follow in the same frame
            return true;
        case SDLK_v: {
            char *const text = SDL_GetClipboardText();
            if (text != nullptr && *text != '\0') {
                typing_.Paste(text);
                copies_ = CopiesSoFar(); // the computer has it
            }
            SDL_free(text);
            return true;
        }
        case SDLK_s:
            Save();
            return true;
        default:
            return false;
        }
    }

    void Save() {
        if (file_.empty()) {
            file_ = options_.save;
        }
        for (int number = 1; file_.empty(); ++number) {
            const std::string name = options_.phone.host + "-" + std::to_string(number) + ".scn";
            file_ = std::filesystem::exists(name) ? "" : name;
        }
        std::ofstream file(file_, std::ios::trunc);
        file << run_.Script();
        file.close();
        panel_.Say((file ? texts_.savedAs : texts_.cannotWrite) + file_);
        std::printf("%s %s\n", file ? "saved" : "cannot write", file_.c_str());
    }

    SdlWindow &window_;
    const WindowOptions &options_;
    const Texts &texts_;
    LiveRun run_;
    Fingers fingers_;
    Typing typing_;
    SidePanel panel_;
    PhonePicture picture_;
    Frames frames_;
    double scale_ = 1;    // of the phone, when the window has the size that fits
    cg::Size screen_;     // of the phone's interface, as it is laid out
    cg::Rect phone_;      // its screen in the window, pixels
    double case_ = kCase; // around it, pixels
    cg::Rect editing_;    // the edited view in the window, pixels
    cg::Point mouse_;
    unsigned modifiers_ = 0; // held when the event came that is handled now; SDL itself knows the latest only
    std::string composed_;   // by the input method, not finished
    std::string drawnComposed_;
    std::string file_; // that the script is saved in
    std::uint64_t start_ = 0;
    std::uint64_t last_ = 0;
    std::uint64_t workDone_ = 0;
    long copies_ = 0;
    long checked_ = 0;
    long wrong_ = 0;
    std::uint64_t refreshed_ = 0; // when the panel looked last
    bool refreshDue_ = true;
    bool tableDrawn_ = false;
    bool endTold_ = false;
    bool closed_ = false;
};

} // namespace

int ShowDesk(SdlWindow &window, driver::Session &session, const WindowOptions &options, const Texts &texts) {
    return Desk(window, session, options, texts).Run();
}

} // namespace sim::window
