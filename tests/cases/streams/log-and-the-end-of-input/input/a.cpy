old
