"""The icons of the demo packages: a white motif on a coloured tile, drawn as SVG."""

COLOURS = {
    "amber": ("#f7b733", "#c9730a"),
    "coral": ("#ff8a70", "#c8452f"),
    "indigo": ("#7d8be0", "#3b4699"),
    "moss": ("#8fbf5a", "#456f22"),
    "ocean": ("#5fb3e6", "#1c659c"),
    "plum": ("#b884c9", "#6b3a80"),
    "rust": ("#d98456", "#8a3f18"),
    "slate": ("#93a1b0", "#4b5968"),
    "teal": ("#5cc9b5", "#1d7a6b"),
}

# Each motif stands in a field of 64 by 64, drawn with one white line of width 4 unless it says otherwise.
MOTIFS = {
    "bell": '<path d="M18 44h28c-4-4-5-8-5-15a9 9 0 0 0-18 0c0 7-1 11-5 15z"/><path d="M28 50a4 4 0 0 0 8 0M32 14v5"/>',
    "bolt": '<path d="M36 12 20 36h11l-3 16 16-24H33z" fill="#fff"/>',
    "book": '<path d="M32 20c-5-4-11-4-18-3v30c7-1 13-1 18 3 5-4 11-4 18-3V17c-7-1-13-1-18 3zM32 20v30"/>',
    "clock": '<circle cx="32" cy="33" r="18"/><path d="M32 22v11l8 5"/>',
    "cloud": '<path d="M21 45a9 9 0 0 1 0-18 12 12 0 0 1 23-2 10 10 0 0 1 0 20z" fill="#fff" fill-opacity=".35"/>',
    "compass": '<circle cx="32" cy="32" r="19"/><path d="m40 24-5 11-11 5 5-11z" fill="#fff"/>',
    "cup": '<path d="M17 26h24v14a9 9 0 0 1-9 9h-6a9 9 0 0 1-9-9zM41 30h3a5 5 0 0 1 0 10h-3M24 14v5M33 14v5"/>',
    "dice": '<rect x="15" y="15" width="34" height="34" rx="6"/><path d="M24 24h.1M40 24h.1M32 32h.1M24 40h.1M40 40h.1" '
            'stroke-width="6"/>',
    "drop": '<path d="M32 12c7 10 13 16 13 24a13 13 0 0 1-26 0c0-8 6-14 13-24z" fill="#fff" fill-opacity=".35"/>',
    "envelope": '<rect x="13" y="19" width="38" height="27" rx="4"/><path d="m14 22 18 14 18-14"/>',
    "eye": '<path d="M11 32c7-9 14-13 21-13s14 4 21 13c-7 9-14 13-21 13S18 41 11 32z"/><circle cx="32" cy="32" r="6" '
           'fill="#fff"/>',
    "feather": '<path d="M46 15c-14 0-25 8-26 24l-5 10M20 39c14 2 26-6 26-24M29 32l12 0"/>',
    "fish": '<path d="M13 32c6-9 12-12 19-12s12 4 16 12c-4 8-9 12-16 12s-13-3-19-12z"/><path d="M48 32l6-8v16zM25 29h.1"/>',
    "flag": '<path d="M20 52V13M20 15c8-4 16 4 25 0v19c-9 4-17-4-25 0" fill="#fff" fill-opacity=".35"/>',
    "gauge": '<path d="M15 43a19 19 0 1 1 34 0"/><path d="m32 36 9-11M32 36h.1" stroke-width="5"/>',
    "grid": '<path d="M16 25h32M16 39h32M25 16v32M39 16v32"/><circle cx="32" cy="32" r="4" fill="#fff"/>',
    "key": '<circle cx="23" cy="41" r="9"/><path d="m30 34 18-18M41 23l6 6M36 28l4 4"/>',
    "kite": '<path d="M34 12 48 26 30 40 22 22z"/><path d="M34 12 30 40c-1 6-9 4-10 11M22 22l26 4"/>',
    "lantern": '<path d="M23 25h18l3 20H20zM25 25a7 8 0 0 1 14 0M18 50h28M32 12v5"/>'
               '<path d="M32 31c4 5 3 9 0 9s-4-4 0-9z" fill="#fff"/>',
    "leaf": '<path d="M17 47C15 26 27 16 48 16c1 20-8 31-25 28M15 51c5-11 12-18 22-24"/>',
    "lock": '<rect x="18" y="29" width="28" height="20" rx="4"/><path d="M23 29v-5a9 9 0 0 1 18 0v5M32 36v6"/>',
    "moon": '<path d="M41 43A17 17 0 1 1 31 14a14 14 0 0 0 17 22 17 17 0 0 1-7 7z" fill="#fff" fill-opacity=".35"/>',
    "mountain": '<path d="m10 48 15-27 9 15 5-8 15 20zM20 30l5 5 4-6"/>',
    "note": '<path d="M26 44V17l20-4v26"/><circle cx="20" cy="44" r="6" fill="#fff"/><circle cx="40" cy="39" r="6" '
            'fill="#fff"/>',
    "palette": '<path d="M32 13a19 19 0 1 0 3 38c4-1 2-5 1-8s2-5 5-5h5c4 0 5-3 5-6 0-11-8-19-19-19z"/>'
               '<path d="M23 27h.1M32 22h.1M41 26h.1M21 37h.1" stroke-width="6"/>',
    "star": '<path d="m32 13 6 12 13 2-10 9 3 13-12-6-12 6 3-13-10-9 13-2z" fill="#fff" fill-opacity=".35"/>',
    "sun": '<circle cx="32" cy="32" r="9" fill="#fff" fill-opacity=".35"/>'
           '<path d="M32 12v4M32 48v4M12 32h4M48 32h4M18 18l3 3M43 43l3 3M46 18l-3 3M21 43l-3 3"/>',
    "terminal": '<rect x="12" y="16" width="40" height="32" rx="5"/><path d="m20 26 7 6-7 6M31 39h11"/>',
    "tree": '<path d="M32 52V36M22 40a10 10 0 0 1-1-19 11 11 0 0 1 22 0 10 10 0 0 1-1 19z"/><path d="m32 42 6-6"/>',
    "wave": '<path d="M11 27c7-8 14-8 21 0s14 8 21 0M11 39c7-8 14-8 21 0s14 8 21 0"/>',
}

TILE = """<svg xmlns="http://www.w3.org/2000/svg" width="126" height="126" viewBox="0 0 64 64">
<defs>
<linearGradient id="tile" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="{light}"/>
<stop offset="1" stop-color="{dark}"/></linearGradient>
<linearGradient id="shine" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#fff" stop-opacity=".45"/>
<stop offset="1" stop-color="#fff" stop-opacity=".08"/></linearGradient>
</defs>
<rect width="64" height="64" rx="12" fill="url(#tile)"/>
<g fill="none" stroke-width="4" stroke-linecap="round" stroke-linejoin="round">
<g stroke="{dark}" stroke-opacity=".8" transform="translate(0 1.5)">{shadow}</g>
<g stroke="#fff">{motif}</g>
</g>
<path d="M0 12A12 12 0 0 1 12 0h40a12 12 0 0 1 12 12v16C46 34 18 34 0 28z" fill="url(#shine)"/>
<rect x=".5" y=".5" width="63" height="63" rx="11.5" fill="none" stroke="#000" stroke-opacity=".25"/>
</svg>
"""


def svg(motif, colour):
    """The icon with the given motif and colour, as SVG text."""
    light, dark = COLOURS[colour]
    shadow = MOTIFS[motif].replace('"#fff"', f'"{dark}"')
    return TILE.format(light=light, dark=dark, motif=MOTIFS[motif], shadow=shadow)
