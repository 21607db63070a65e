# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""What applications open: each writes the text into a folder and names the file to open.

Those that can tell how often F2 has reached them do it in their window's title.
"""

import html


def write(file, content, encoding="utf-8"):
    file.write_text(content, encoding)
    return file


def plain(folder, text):
    return write(folder / "text.txt", text)


def page(folder, text):
    return write(folder / "page.html", f"""<!doctype html><meta charset="utf-8"><title>page 0</title>
<textarea autofocus rows="9" cols="60">{html.escape(text)}</textarea>
<script>
let presses = 0;
addEventListener("keydown", event => {{
    if (event.key == "F2") document.title = `page ${{++presses}}`;
}});
</script>
""")


def pdf(folder, text):
    escaped = text.translate({ord(c): "\\" + c for c in "\\()"})
    content = f"BT /F 18 Tf 60 760 Td ({escaped}) Tj ET"
    bodies = [
        "<</Type/Catalog/Pages 2 0 R>>",
        "<</Type/Pages/Kids[3 0 R]/Count 1>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R"
        "/Resources<</Font<</F 5 0 R>>>>>>",
        f"<</Length {len(content)}>>stream\n{content}\nendstream",
        "<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>",
    ]
    document = "%PDF-1.4\n"
    offsets = []
    for number, body in enumerate(bodies, 1):
        offsets.append(len(document))
        document += f"{number} 0 obj{body}endobj\n"
    rows = "".join(f"{offset:010} 00000 n \n" for offset in offsets)
    table = f"xref\n0 {len(bodies) + 1}\n0000000000 65535 f \n{rows}"
    trailer = f"trailer<</Size {len(bodies) + 1}/Root 1 0 R>>\nstartxref\n{len(document)}\n%%EOF\n"
    return write(folder / "text.pdf", document + table + trailer, "latin-1")


def spreadsheet(folder, text):
    """The text in the first cell; in the second a formula without a visible result."""
    return write(folder / "text.fods", f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.3"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:body><office:spreadsheet><table:table table:name="S"><table:table-row>
<table:table-cell office:value-type="string"><text:p>{html.escape(text)}</text:p></table:table-cell>
<table:table-cell table:formula="of:=&quot;&quot;" office:value-type="string"/>
</table:table-row></table:table></office:spreadsheet></office:body></office:document>
""")


def swing(folder, text):
    plain(folder, text)
    return write(folder / "Swing.java", """
import java.awt.event.*;
import java.nio.file.*;
import javax.swing.*;

class Swing {
    static int presses;

    public static void main(String[] arguments) throws Exception {
        String text = Files.readString(Path.of(arguments[0]));
        SwingUtilities.invokeLater(() -> {
            JTextArea area = new JTextArea(text, 12, 50);
            JFrame frame = new JFrame("Swing 0");
            area.addKeyListener(new KeyAdapter() {
                public void keyPressed(KeyEvent event) {
                    if (event.getKeyCode() == KeyEvent.VK_F2)
                        frame.setTitle("Swing " + ++presses);
                }
            });
            frame.add(area);
            frame.pack();
            frame.setVisible(true);
        });
    }
}
""")


def tk(folder, text):
    plain(folder, text)
    return write(folder / "text.tcl", f"""
wm title . "Tk 0"
set presses 0
pack [text .text]
bind . <F2> {{ wm title . "Tk [incr presses]" }}
set file [open "{folder}/text.txt"]
fconfigure $file -encoding utf-8
.text insert end [read $file]
focus -force .text
""")


def file(folder, text):
    """A folder with a single file: file managers."""
    shown = folder / "shown"
    shown.mkdir()
    plain(shown, text)
    return shown


def terminal_program(folder, text):
    """Fills the terminal with lines of the text, then notes keys and interrupts."""
    plain(folder, text + "\n")
    return write(folder / "program.sh", f"""cd '{folder}'
trap 'echo interrupted >>interrupts' INT
stty -icanon -echo
clear
for line in $(seq 60); do cat text.txt; done
touch ready
while :; do cat >>keys; done
""")
