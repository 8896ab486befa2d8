#error "the program has a copy of fmt inside another library"
