# Colours of the bright theme. Contrasts are on WINDOW unless said otherwise.
set(THEME bright)
set(WINDOW "#f5f6f8")       # as in the palette
set(BASE "#ffffff")         # as in the palette
set(HIGHLIGHT "#bbdaf3")    # as in the palette
set(TEXT "#1b2026")
set(MUTED_TEXT "#4a5561")   # headings and labels of lesser weight, 7 : 1
set(DISABLED_TEXT "#66707c")   # 4.6 : 1
set(ACCENT "#1f6fb2")       # 4.9 : 1: focus, active tab, check marks
set(SEPARATOR "#d9dde2")
set(OUTLINE "#848d97")      # outlines of controls, 3.1 : 1
set(DISABLED_OUTLINE "#c3c9d0")
set(BUTTON "#ffffff")
set(HOVER "#e6eaee")
set(PRESSED "#d5dbe1")
set(SCROLL_HANDLE "#8a939d")   # 3.1 : 1 on BASE
set(SCROLL_HANDLE_HOVER "#66707c")
set(FIELD_HOVER "#f5f8fb")
set(TOOLTIP "#1b2026")
set(TOOLTIP_TEXT "#ffffff")
set(EDITED_CELL "#dcecf9")   # ground of cell editors with black text
