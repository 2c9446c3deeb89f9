mine
