#include "tests/hostile/fuzz/OddMessages.h"

#include "tests/hostile/fuzz/PlatformFaults.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/WindowClass.h"

#include <commctrl.h>
#include <dde.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace kiv::test
{

namespace
{

// What a message is declared with.
enum class Shape
{
    Numbers,
    Text,       // a text in the second parameter
    Room,       // so many characters or items in the first, room for them in the second
    Line,       // room whose first word says how much it is
    Rectangle,  // in the second
    TwoNumbers, // whose addresses are both parameters
    Structure,  // in the second, of the message's own kind
    Device,     // a device context in the first
    Font,       // one in the first
    Nothing,    // what could stand there is code or a handle that only its maker may name
};

struct Declared
{
    UINT Message;
    Shape Is;
};

constexpr Declared Table[] = {
    {WM_CREATE, Shape::Structure},
    {WM_NCCREATE, Shape::Structure},
    {WM_SETTEXT, Shape::Text},
    {WM_GETTEXT, Shape::Room},
    {WM_SETTINGCHANGE, Shape::Text},
    {WM_DEVMODECHANGE, Shape::Text},
    {WM_GETMINMAXINFO, Shape::Structure},
    {WM_DRAWITEM, Shape::Structure},
    {WM_MEASUREITEM, Shape::Structure},
    {WM_DELETEITEM, Shape::Structure},
    {WM_COMPAREITEM, Shape::Structure},
    {WM_WINDOWPOSCHANGING, Shape::Structure},
    {WM_WINDOWPOSCHANGED, Shape::Structure},
    {WM_COPYDATA, Shape::Structure},
    {WM_NOTIFY, Shape::Structure},
    {WM_HELP, Shape::Structure},
    {WM_STYLECHANGING, Shape::Structure},
    {WM_STYLECHANGED, Shape::Structure},
    {WM_NCCALCSIZE, Shape::Structure},
    {WM_GETDLGCODE, Shape::Structure},
    {WM_NEXTMENU, Shape::Structure},
    {WM_SIZING, Shape::Rectangle},
    {WM_MOVING, Shape::Rectangle},
    {WM_DEVICECHANGE, Shape::Nothing},
    {WM_MDICREATE, Shape::Nothing},
    {WM_MDIGETACTIVE, Shape::Structure},
    {WM_MENUGETOBJECT, Shape::Nothing},
    {WM_IME_CONTROL, Shape::Nothing},
    {WM_IME_REQUEST, Shape::Nothing},
    {WM_IME_COMPOSITION, Shape::Numbers},
    {WM_INPUT, Shape::Nothing},
    {WM_DROPFILES, Shape::Nothing},
    {WM_ASKCBFORMATNAME, Shape::Room},
    {WM_PAINTCLIPBOARD, Shape::Nothing},
    {WM_SIZECLIPBOARD, Shape::Nothing},
    {0x33F, Shape::Structure}, // WM_GETTITLEBARINFOEX
    {WM_ERASEBKGND, Shape::Device},
    {WM_PAINT, Shape::Device},
    {WM_PRINT, Shape::Device},
    {WM_PRINTCLIENT, Shape::Device},
    {WM_ICONERASEBKGND, Shape::Device},
    {WM_SETFONT, Shape::Font},
    {WM_NCPAINT, Shape::Nothing},
    {EM_GETSEL, Shape::TwoNumbers},
    {EM_GETRECT, Shape::Rectangle},
    {EM_SETRECT, Shape::Rectangle},
    {EM_SETRECTNP, Shape::Rectangle},
    {EM_REPLACESEL, Shape::Text},
    {EM_GETLINE, Shape::Line},
    {EM_SETTABSTOPS, Shape::Room},
    {EM_SETWORDBREAKPROC, Shape::Nothing},
    {EM_SETHANDLE, Shape::Nothing},
    {SBM_GETRANGE, Shape::TwoNumbers},
    {SBM_SETSCROLLINFO, Shape::Structure},
    {SBM_GETSCROLLINFO, Shape::Structure},
    {SBM_GETSCROLLBARINFO, Shape::Structure},
    {BM_SETIMAGE, Shape::Nothing},
    {STM_SETICON, Shape::Nothing},
    {STM_SETIMAGE, Shape::Nothing},
    {CB_GETEDITSEL, Shape::TwoNumbers},
    {CB_ADDSTRING, Shape::Text},
    {CB_DIR, Shape::Text},
    {CB_GETLBTEXT, Shape::Structure},
    {CB_INSERTSTRING, Shape::Text},
    {CB_FINDSTRING, Shape::Text},
    {CB_FINDSTRINGEXACT, Shape::Text},
    {CB_SELECTSTRING, Shape::Text},
    {CB_GETDROPPEDCONTROLRECT, Shape::Rectangle},
    {CB_GETCOMBOBOXINFO, Shape::Structure},
    {LB_ADDSTRING, Shape::Text},
    {LB_INSERTSTRING, Shape::Text},
    {LB_GETTEXT, Shape::Structure},
    {LB_SELECTSTRING, Shape::Text},
    {LB_DIR, Shape::Text},
    {LB_FINDSTRING, Shape::Text},
    {LB_FINDSTRINGEXACT, Shape::Text},
    {LB_ADDFILE, Shape::Text},
    {LB_GETSELITEMS, Shape::Room},
    {LB_SETTABSTOPS, Shape::Room},
    {LB_GETITEMRECT, Shape::Rectangle},
};

// Those that are a window's end, or wait for the user: the system's menus, and windows that are dragged.
constexpr UINT LeftOut[] = {
    WM_DESTROY,       WM_NCDESTROY,       WM_CLOSE,         WM_QUIT,        WM_QUERYENDSESSION,
    WM_ENDSESSION,    WM_SYSCOMMAND,      WM_CONTEXTMENU,   WM_RBUTTONUP,   0x313,
    WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK, WM_NCRBUTTONDOWN, WM_NCRBUTTONUP,
};

struct Range
{
    const char* Class;
    UINT First;
    UINT Last;
};

constexpr Range OfClass[] = {
    {"Edit", EM_GETSEL, 0xE0},
    {"Button", BM_GETCHECK, BM_SETDONTCLICK},
    {"ScrollBar", SBM_SETPOS, 0xEF},
    {"ComboBox", CB_GETEDITSEL, CB_GETCOMBOBOXINFO},
    {"ListBox", LB_ADDSTRING, 0x1B5},
    {"ComboLBox", LB_ADDSTRING, 0x1B5},
    {"Static", STM_SETICON, STM_GETIMAGE},
};
constexpr UINT FirstOfToolTips = WM_USER;
constexpr UINT LastOfToolTips = WM_USER + 100;

constexpr UINT InputMessages[] = {WM_KEYDOWN,       WM_KEYUP,          WM_CHAR,       WM_SYSKEYDOWN,
                                  WM_SYSCHAR,       WM_LBUTTONDOWN,    WM_LBUTTONUP,  WM_MOUSEMOVE,
                                  WM_LBUTTONDBLCLK, WM_MOUSEWHEEL,     WM_SETFOCUS,   WM_KILLFOCUS,
                                  WM_CUT,           WM_PASTE,          WM_CLEAR,      WM_UNDO,
                                  WM_TIMER,         WM_CAPTURECHANGED, WM_CANCELMODE, WM_ENABLE};
constexpr UINT Requests[] = {WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM, WM_DELETEITEM, WM_NOTIFY};

Shape ShapeOf(UINT message)
{
    const auto* const found =
        std::ranges::find(Table, message, [](const Declared& declared) { return declared.Message; });
    return found == std::end(Table) ? Shape::Numbers : found->Is;
}

// With Alt a character is a command for the form's menus, in which the system waits for the user.
bool LeadsToMenu(const OddMessage& message)
{
    constexpr LPARAM altIsDown = 1 << 29;
    return message.Number == WM_SYSCHAR && (message.Second & altIsDown) != 0;
}

bool IsLeftOut(const OddMessage& message, HWND target)
{
    const UINT number = message.Number;
    return std::ranges::find(LeftOut, number) != std::end(LeftOut) || LeadsToMenu(message) ||
           (number >= WM_DDE_FIRST && number <= WM_DDE_LAST) || IsPlatformFault(message, target);
}

HWND AnyWindow(Random& random, HWND root)
{
    return random.OneIn(8) ? nullptr : random.Pick(WindowsOf(root));
}

} // namespace

std::string OddMessage::Describe(HWND target) const
{
    char text[160] = {};
    wsprintfA(text, "%s message 0x%x (0x%x, 0x%x) to ", Wide ? "wide" : "plain", Number,
              static_cast<UINT>(First), static_cast<UINT>(Second));
    return text + ClassNameOf(target) + (IsWindowUnicode(target) ? " (wide)" : "");
}

void OddMessage::SendTo(HWND target) const
{
    if (Wide)
        SendMessageW(target, Number, First, Second);
    else
        SendMessageA(target, Number, First, Second);
}

OddMessages::OddMessages() : memory_(std::size_t{256} << 10), dc_(CreateCompatibleDC(nullptr)) {}

OddMessages::~OddMessages()
{
    DeleteDC(dc_);
}

OddMessage OddMessages::Any(Random& random, HWND target, HWND root)
{
    OddMessage message;
    do
        message = Made(random, target, root);
    while (IsLeftOut(message, target));
    return message;
}

OddMessage OddMessages::Made(Random& random, HWND target, HWND root)
{
    if (random.OneIn(8))
        return FromChild(random, root);
    OddMessage message{Number(random, target), static_cast<WPARAM>(random.OddNumber()),
                       static_cast<LPARAM>(random.OddNumber()), random.OneIn(4)};
    // With margins that leave no room, an edit window may look for the place to scroll to without an end.
    if (message.Number == EM_SETMARGINS)
        message.Second = MAKELPARAM(random.Below(20), random.Below(20));
    Fill(random, message, target, root);
    return message;
}

UINT OddMessages::Number(Random& random, HWND target)
{
    const std::string name = ClassNameOf(target);
    const auto* const range =
        std::ranges::find_if(OfClass, [&](const Range& each) { return name == each.Class; });
    switch (random.Below(10))
    {
    case 0:
    case 1:
        return static_cast<UINT>(random.Below(WM_USER));
    case 2:
        return WM_USER + static_cast<UINT>(random.Below(0xC000 - WM_USER));
    case 3:
        // Registered by name, such as those of dialogs and of the mouse.
        return random.OneIn(2) ? RegisterWindowMessageA("MSWHEEL_ROLLMSG")
                               : 0xC000 + static_cast<UINT>(random.Below(0x4000));
    case 4:
    case 5:
        return random.Pick(Table).Message;
    case 6:
        return random.Pick(InputMessages);
    case 7:
        return random.OneIn(2) ? UINT{WM_GETOBJECT} : random.Pick(Requests);
    default:
        if (name == TOOLTIPS_CLASSA)
            return FirstOfToolTips + static_cast<UINT>(random.Below(LastOfToolTips - FirstOfToolTips));
        return range == std::end(OfClass)
                   ? random.Pick(InputMessages)
                   : range->First + static_cast<UINT>(random.Below(range->Last - range->First + 1));
    }
}

// What a window inside tells the one that it lies in.
OddMessage OddMessages::FromChild(Random& random, HWND root)
{
    static constexpr UINT Told[] = {WM_COMMAND,         WM_HSCROLL,      WM_VSCROLL,     WM_CTLCOLOREDIT,
                                    WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN,  WM_CTLCOLORDLG, WM_CTLCOLORSCROLLBAR,
                                    WM_CTLCOLORSTATIC,  WM_PARENTNOTIFY, WM_CHARTOITEM,  WM_VKEYTOITEM,
                                    WM_SETCURSOR,       WM_MOUSEACTIVATE};
    const HWND child = AnyWindow(random, root);
    OddMessage message{random.Pick(Told), 0, reinterpret_cast<LPARAM>(child), random.OneIn(4)};
    if (message.Number >= WM_CTLCOLORMSGBOX && message.Number <= WM_CTLCOLORSTATIC)
        message.First = random.OneIn(2) ? reinterpret_cast<WPARAM>(dc_) : 0;
    else if (message.Number == WM_COMMAND)
        message.First = MAKEWPARAM(GetDlgCtrlID(child), random.OneIn(4) ? random.Next() : random.Below(16));
    else
        message.First = static_cast<WPARAM>(random.OddNumber());
    return message;
}

template<class Structure>
Structure& OddMessages::Put(OddMessage& message)
{
    auto* const structure = new (memory_.data()) Structure();
    message.Second = reinterpret_cast<LPARAM>(structure);
    return *structure;
}

void OddMessages::PointAtText(Random& random, OddMessage& message)
{
    static constexpr const char* Texts[] = {"",      "1",          "Two", "One",
                                            "&File", "12/31/2001", "*.*", "99999999999"};
    std::memset(memory_.data(), 0, 600);
    if (message.Wide)
    {
        auto* text = reinterpret_cast<wchar_t*>(memory_.data());
        for (const char* each = random.Pick(Texts); *each != 0; ++each)
            *text++ = static_cast<wchar_t>(*each);
        for (std::size_t more = random.OneIn(3) ? random.Below(200) : 0; more > 0; --more)
            *text++ = static_cast<wchar_t>(random.Next());
    }
    else
    {
        auto* text = reinterpret_cast<char*>(memory_.data());
        for (const char* each = random.Pick(Texts); *each != 0; ++each)
            *text++ = *each;
        for (std::size_t more = random.OneIn(3) ? random.Below(200) : 0; more > 0; --more)
            *text++ = static_cast<char>(random.Next());
    }
    message.Second = reinterpret_cast<LPARAM>(memory_.data());
}

void OddMessages::Fill(Random& random, OddMessage& message, HWND target, HWND root)
{
    const bool isOfToolTip = ClassNameOf(target) == TOOLTIPS_CLASSA && message.Number >= FirstOfToolTips;
    const Shape shape = isOfToolTip ? Shape::Structure : ShapeOf(message.Number);
    if (shape == Shape::Numbers)
        return;
    if (shape == Shape::Device)
    {
        message.First = random.OneIn(2) ? reinterpret_cast<WPARAM>(dc_) : 0;
        return;
    }
    if (shape == Shape::Font)
    {
        message.First = random.OneIn(2) ? reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)) : 0;
        return;
    }
    if (shape == Shape::Nothing || random.OneIn(8))
    {
        message.First = random.OneIn(2) ? 0 : message.First & 0xFF;
        message.Second = 0;
        if (shape == Shape::Nothing || shape == Shape::TwoNumbers || shape == Shape::Room)
            message.First = 0;
        return;
    }
    message.Second = reinterpret_cast<LPARAM>(memory_.data());
    switch (shape)
    {
    case Shape::Text:
        PointAtText(random, message);
        break;
    case Shape::Room:
        message.First = random.Below(1000);
        break;
    case Shape::Line: {
        const auto room = static_cast<WORD>(random.Below(1000));
        std::memcpy(memory_.data(), &room, sizeof room);
        break;
    }
    case Shape::Rectangle: {
        const auto number = [&] { return static_cast<LONG>(random.OddNumber()); };
        RECT& rectangle = Put<RECT>(message);
        rectangle = {number(), number(), number(), number()};
        break;
    }
    case Shape::TwoNumbers:
        message.First = reinterpret_cast<WPARAM>(memory_.data() + 64);
        break;
    default:
        PointAtStructure(random, message, target, root);
        break;
    }
}

void OddMessages::PointAtStructure(Random& random, OddMessage& message, HWND target, HWND root)
{
    const auto number = [&] { return static_cast<LONG>(random.OddNumber()); };
    const auto small = [&] { return static_cast<LONG>(random.Below(400)) - 100; };
    std::memset(memory_.data(), 0, 1024);
    auto* const text = reinterpret_cast<char*>(memory_.data()) + 512;
    std::memcpy(text, "Te\0x\0t\0\0", 8);
    const HWND window = AnyWindow(random, root);
    switch (message.Number)
    {
    case WM_CREATE:
    case WM_NCCREATE: {
        CREATESTRUCTA& creation = Put<CREATESTRUCTA>(message);
        creation.cx = small();
        creation.cy = small();
        creation.style = number();
        creation.lpszName = text;
        creation.lpszClass = text;
        creation.hwndParent = window;
        creation.lpCreateParams = random.OneIn(2) ? memory_.data() + 2048 : nullptr;
        break;
    }
    case WM_DRAWITEM: {
        DRAWITEMSTRUCT& item = Put<DRAWITEMSTRUCT>(message);
        item = {static_cast<UINT>(random.Below(7)),
                static_cast<UINT>(number()),
                static_cast<UINT>(number()),
                static_cast<UINT>(random.Below(8)),
                static_cast<UINT>(random.Next() & 0x1FFF),
                window,
                nullptr,
                {small(), small(), small(), small()},
                static_cast<ULONG_PTR>(number())};
        if (random.OneIn(2))
            message.First = item.CtlID = static_cast<UINT>(GetDlgCtrlID(window));
        break;
    }
    case WM_MEASUREITEM: {
        MEASUREITEMSTRUCT& item = Put<MEASUREITEMSTRUCT>(message);
        item = {static_cast<UINT>(random.Below(7)), static_cast<UINT>(GetDlgCtrlID(window)),
                static_cast<UINT>(number()),        static_cast<UINT>(number()),
                static_cast<UINT>(number()),        static_cast<ULONG_PTR>(number())};
        break;
    }
    case WM_DELETEITEM: {
        DELETEITEMSTRUCT& item = Put<DELETEITEMSTRUCT>(message);
        item = {static_cast<UINT>(random.Below(7)), static_cast<UINT>(GetDlgCtrlID(window)),
                static_cast<UINT>(number()), window, static_cast<ULONG_PTR>(number())};
        break;
    }
    case WM_COMPAREITEM: {
        COMPAREITEMSTRUCT& items = Put<COMPAREITEMSTRUCT>(message);
        items = {static_cast<UINT>(random.Below(7)),
                 static_cast<UINT>(GetDlgCtrlID(window)),
                 window,
                 static_cast<UINT>(number()),
                 static_cast<ULONG_PTR>(number()),
                 static_cast<UINT>(number()),
                 static_cast<ULONG_PTR>(number()),
                 0};
        break;
    }
    case WM_WINDOWPOSCHANGING:
    case WM_WINDOWPOSCHANGED:
        Put<WINDOWPOS>(message) = {
            target, nullptr, small(), small(), small(), small(), static_cast<UINT>(random.Next() & 0x7FF)};
        break;
    case WM_COPYDATA:
        Put<COPYDATASTRUCT>(message) = {static_cast<ULONG_PTR>(number()),
                                        static_cast<DWORD>(random.Below(512)), text};
        break;
    case WM_NOTIFY: {
        NMHDR& header = Put<NMHDR>(message);
        header = {window, static_cast<UINT_PTR>(number()),
                  static_cast<UINT>(-static_cast<LONG>(random.Below(900)))};
        break;
    }
    case WM_HELP:
        Put<HELPINFO>(message) = {sizeof(HELPINFO), HELPINFO_WINDOW, small(), window, 0, {small(), small()}};
        break;
    case WM_STYLECHANGING:
    case WM_STYLECHANGED:
        message.First = static_cast<WPARAM>(random.OneIn(2) ? GWL_STYLE : GWL_EXSTYLE);
        Put<STYLESTRUCT>(message) = {static_cast<DWORD>(number()), static_cast<DWORD>(number())};
        break;
    case WM_GETDLGCODE:
        Put<MSG>(message) = {target, WM_KEYDOWN, static_cast<WPARAM>(random.Below(256)), 0, 0, {}};
        break;
    case WM_NCCALCSIZE: {
        NCCALCSIZE_PARAMS& sizes = Put<NCCALCSIZE_PARAMS>(message);
        for (RECT& each : sizes.rgrc)
            each = {small(), small(), small(), small()};
        sizes.lppos = new (memory_.data() + 256) WINDOWPOS();
        break;
    }
    case SBM_SETSCROLLINFO:
    case SBM_GETSCROLLINFO:
        Put<SCROLLINFO>(message) = {sizeof(SCROLLINFO),
                                    static_cast<UINT>(random.Below(32)),
                                    number(),
                                    number(),
                                    static_cast<UINT>(number()),
                                    number(),
                                    number()};
        break;
    case SBM_GETSCROLLBARINFO:
        Put<SCROLLBARINFO>(message).cbSize = sizeof(SCROLLBARINFO);
        break;
    case CB_GETCOMBOBOXINFO:
        Put<COMBOBOXINFO>(message).cbSize = sizeof(COMBOBOXINFO);
        break;
    default:
        if (message.Number >= FirstOfToolTips)
        {
            TTTOOLINFOA& tool = Put<TTTOOLINFOA>(message);
            tool.cbSize = random.OneIn(2) ? sizeof tool : TTTOOLINFOA_V1_SIZE;
            tool.uFlags = static_cast<UINT>(random.Next() & 0x1FF);
            tool.hwnd = window;
            tool.uId = random.OneIn(2) ? reinterpret_cast<UINT_PTR>(window) : static_cast<UINT_PTR>(number());
            tool.lpszText = text;
        }
        break;
    }
}

} // namespace kiv::test
