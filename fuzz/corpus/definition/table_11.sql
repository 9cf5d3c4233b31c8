CREATE TABLE `two` (
  `q` int(11) DEFAULT NULL COMMENT 'it''s, CONSTRAINT `x` FOREIGN KEY (`y`) \\',
  `e` int(11) GENERATED ALWAYS AS (`h` + 1) VIRTUAL,
  `d` timestamp NOT NULL DEFAULT current_timestamp() ON UPDATE current_timestamp(),
  PRIMARY KEY (`q`),
  UNIQUE KEY `u ``x` (`r`(10) DESC,`q`) USING BTREE,
  KEY `r` (`r`,`q`),
  CONSTRAINT `fk ``q` FOREIGN KEY (`r`, `q`) REFERENCES `other``db`.`child_%"` (`x`, `y`) ON DELETE SET NULL ON UPDATE CASCADE,
  CONSTRAINT `plain` FOREIGN KEY (`q`) REFERENCES `two` (`q`),
  CONSTRAINT `c` CHECK (`q` > 1)
) ENGINE=InnoDB DEFAULT CHARSET=latin1 COLLATE=latin1_swedish_ci