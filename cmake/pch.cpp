// The translation unit that carries the precompiled header.
